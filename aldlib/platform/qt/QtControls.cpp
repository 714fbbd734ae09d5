#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStyle>
#include <algorithm>

#include "aldlib/platform/qt/internal/QtText.h"
#include "aldlib/platform/qt/internal/QtView.h"

// A widget for each kind of control.
namespace ald {
namespace {

// Style bits of the controls.
constexpr std::uint32_t kStaticKindMask = 0x1F;
constexpr std::uint32_t kStaticCenter = 1;
constexpr std::uint32_t kStaticRight = 2;
constexpr std::uint32_t kStaticIcon = 3;
constexpr std::uint32_t kStaticNoWrap = 12;
constexpr std::uint32_t kStaticNoPrefix = 0x80;
constexpr std::uint32_t kStaticMiddle = 0x200;
constexpr std::uint32_t kEditCenter = 1;
constexpr std::uint32_t kEditRight = 2;
constexpr std::uint32_t kEditPassword = 0x20;
constexpr std::uint32_t kEditReadOnly = 0x800;
constexpr std::uint32_t kComboKindMask = 3;
constexpr std::uint32_t kComboPlainList = 3;
constexpr int kQtLongestText = 32767;

// What kind of widget a button is.
enum class ButtonKind : std::uint8_t { kPush, kCheck, kRadio, kGroup };

ButtonKind ButtonKindOf(std::uint32_t nStyle) {
  switch (nStyle & kButtonKindMask) {
    case 2:
    case kButtonAutoCheck:
    case 5:
    case 6:
      return ButtonKind::kCheck;
    case 4:
    case kButtonAutoRadio:
      return ButtonKind::kRadio;
    case kButtonGroupBox:
      return ButtonKind::kGroup;
    default:
      return ButtonKind::kPush;
  }
}

// Takes a click anywhere on it, and not on its mark and text alone.
template <typename Button>
class WholeButton : public Button {
 public:
  using Button::Button;

 protected:
  bool hitButton(const QPoint& point) const override { return this->rect().contains(point); }
};

// A text without its mnemonic signs; of two, the first goes.
QString WithoutPrefix(const QString& text) {
  QString shown;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == QLatin1Char('&') && ++i == text.size()) break;
    shown += text[i];
  }
  return shown;
}

Qt::Alignment AlignmentOf(std::uint32_t nKind, std::uint32_t nCenter, std::uint32_t nRight) {
  if (nKind == nCenter) return Qt::AlignHCenter;
  return nKind == nRight ? Qt::AlignRight : Qt::AlignLeft;
}

// Underlines its mnemonic. A plain label does so only for a widget that its letter is to lead to,
// and here the letters are the dialog's business.
class MnemonicLabel : public QLabel {
 public:
  using QLabel::QLabel;

  void Say(const QString& text, bool bPrefix) {
    setText(bPrefix ? WithoutPrefix(text) : text);
    m_marked = bPrefix ? text : QString();
  }

 protected:
  void paintEvent(QPaintEvent* pEvent) override {
    if (m_marked.isEmpty() || m_marked == text()) return QLabel::paintEvent(pEvent);
    QPainter painter(this);
    const int nFlags =
        static_cast<int>(alignment()) | Qt::TextShowMnemonic | (wordWrap() ? Qt::TextWordWrap : 0);
    style()->drawItemText(&painter, contentsRect(), nFlags, palette(), isEnabled(), m_marked,
                          foregroundRole());
  }

 private:
  QString m_marked;  // the text with its signs; empty if it has none
};

void UpdateLabel(MnemonicLabel& label, const HeadlessWindow& window) {
  const std::uint32_t nKind = window.nStyle & kStaticKindMask;
  if (nKind == kStaticIcon || window.content.hIcon != IconHandle{}) {
    label.setPixmap(PixmapOf(window.content.hIcon));
  } else {
    label.Say(QtTextOf(window.sText), (window.nStyle & kStaticNoPrefix) == 0);
  }
  const bool bMiddle = (window.nStyle & kStaticMiddle) != 0;
  label.setAlignment(AlignmentOf(nKind, kStaticCenter, kStaticRight) |
                     (bMiddle ? Qt::AlignVCenter : Qt::AlignTop));
  label.setWordWrap(nKind <= kStaticRight && nKind != kStaticNoWrap);
}

void UpdateEdit(QLineEdit& edit, const HeadlessWindow& window) {
  const ControlContent& content = window.content;
  const auto nLength = static_cast<int>(window.sText.size());
  // A limit holds for what is typed; a program may put in more.
  const int nLimit =
      content.nLimit == 0
          ? kQtLongestText
          : static_cast<int>(std::min<std::uint32_t>(content.nLimit, kQtLongestText));
  edit.setMaxLength(std::max(nLimit, nLength));
  edit.setReadOnly((window.nStyle & kEditReadOnly) != 0);
  edit.setEchoMode((window.nStyle & kEditPassword) != 0 ? QLineEdit::Password : QLineEdit::Normal);
  edit.setAlignment(
      AlignmentOf(window.nStyle & (kEditCenter | kEditRight), kEditCenter, kEditRight) |
      Qt::AlignVCenter);
  const QString text = QtTextOf(window.sText);
  if (edit.text() != text) edit.setText(text);
  const int nFirst = content.nSelectionFirst;
  const int nSelected = content.nSelectionEnd - nFirst;
  if (nSelected > 0) {
    if (edit.selectionStart() != nFirst || edit.selectionLength() != nSelected) {
      edit.setSelection(nFirst, nSelected);
    }
  } else if (edit.hasSelectedText() || edit.cursorPosition() != nFirst) {
    edit.deselect();
    edit.setCursorPosition(nFirst);
  }
}

void UpdateButton(QAbstractButton& button, const HeadlessWindow& window) {
  const QString text = QtTextOf(window.sText);
  if (button.text() != text) button.setText(text);
  const int nCheck = window.content.nCheck;
  if (auto* const pCheck = qobject_cast<QCheckBox*>(&button)) {
    pCheck->setTristate(nCheck == 2);
    pCheck->setCheckState(nCheck == 2   ? Qt::PartiallyChecked
                          : nCheck == 1 ? Qt::Checked
                                        : Qt::Unchecked);
  } else if (auto* const pPush = qobject_cast<QPushButton*>(&button)) {
    pPush->setDefault((window.nStyle & kButtonKindMask) == kButtonDefaultPush);
  } else {
    button.setChecked(nCheck != 0);
  }
}

}  // namespace

// The keys go to the queue and the mouse asks the queue for the focus, so no widget takes it by
// itself.
QWidget* QtView::NewControl(WindowHandle hWindow, const HeadlessWindow& window, QWidget* pParent) {
  QWidget* pNew = nullptr;
  switch (window.pClass->kind) {
    case WindowKind::kArea:
    case WindowKind::kDialog:
      pNew = new QWidget(pParent);
      break;
    case WindowKind::kStatic: {
      auto* const pLabel = new MnemonicLabel(pParent);
      pLabel->setTextFormat(Qt::PlainText);
      pLabel->setAttribute(Qt::WA_TransparentForMouseEvents);
      pNew = pLabel;
      break;
    }
    case WindowKind::kButton: {
      const ButtonKind kind = ButtonKindOf(window.nStyle);
      if (kind == ButtonKind::kGroup) {
        pNew = new QGroupBox(pParent);
        pNew->setAttribute(Qt::WA_TransparentForMouseEvents);
        break;
      }
      QAbstractButton* pButton = nullptr;
      if (kind == ButtonKind::kPush) {
        auto* const pPush = new QPushButton(pParent);
        pPush->setAutoDefault(false);
        pButton = pPush;
      } else if (kind == ButtonKind::kCheck) {
        pButton = new WholeButton<QCheckBox>(pParent);
      } else {
        pButton = new WholeButton<QRadioButton>(pParent);
        pButton->setAutoExclusive(false);
      }
      connect(pButton, &QAbstractButton::clicked, this, [this, hWindow] {
        m_input.Click(hWindow);
        Changed(hWindow);  // it is checked once the click has been heard
      });
      pNew = pButton;
      break;
    }
    case WindowKind::kEdit: {
      auto* const pEdit = new QLineEdit(pParent);
      const auto mirror = [this, hWindow] { MirrorEdit(hWindow); };
      connect(pEdit, &QLineEdit::textEdited, this, mirror);
      connect(pEdit, &QLineEdit::cursorPositionChanged, this, mirror);
      connect(pEdit, &QLineEdit::selectionChanged, this, mirror);
      pNew = pEdit;
      break;
    }
    case WindowKind::kList: {
      auto* const pList = new QListWidget(pParent);
      connect(pList, &QListWidget::itemPressed, this, [this, hWindow, pList] {
        // The focus has made a row current that nobody chose: a click on it is no change to Qt.
        if (m_ports.controls.Selection(hWindow) == -1) m_input.Choose(hWindow, pList->currentRow());
      });
      connect(pList, &QListWidget::currentRowChanged, this, [this, hWindow](int nRow) {
        if (!m_bShowing) m_input.Choose(hWindow, nRow);
      });
      pNew = pList;
      break;
    }
    case WindowKind::kCombo: {
      auto* const pCombo = new QComboBox(pParent);
      connect(pCombo, &QComboBox::activated, this,
              [this, hWindow](int nItem) { m_input.Choose(hWindow, nItem); });
      if ((window.nStyle & kComboKindMask) != kComboPlainList) {
        pCombo->setEditable(true);
        pCombo->setCompleter(nullptr);
        pCombo->setInsertPolicy(QComboBox::NoInsert);
        connect(pCombo, &QComboBox::editTextChanged, this, [this, hWindow](const QString& text) {
          if (!m_bShowing) m_input.Edited(hWindow, TextOf(text));
        });
      }
      pNew = pCombo;
      break;
    }
  }
  pNew->setFocusPolicy(Qt::NoFocus);
  return pNew;
}

void QtView::UpdateControl(WindowHandle hWindow, const HeadlessWindow& window, Shown& shown) {
  // Another kind of button is another widget. One that is pressed lives on until that is over.
  const bool bOtherKind = window.pClass->kind == WindowKind::kButton && shown.nStyle != 0 &&
                          ButtonKindOf(window.nStyle) != ButtonKindOf(shown.nStyle) &&
                          window.IsChild();
  if (bOtherKind) {
    m_handles.remove(shown.pInside);
    shown.pInside->hide();
    m_dropped.push_back(shown.pInside);
    shown.pInside = NewControl(hWindow, window, shown.pInside->parentWidget());
    shown.pOuter = shown.pInside;
    shown.hFont.reset();
    m_handles[shown.pInside] = hWindow;
  }
  shown.nStyle = window.nStyle;
  UpdateLook(window, shown);

  QWidget* const pWidget = shown.pInside;
  const QSignalBlocker blocker(pWidget);
  switch (window.pClass->kind) {
    case WindowKind::kStatic:
      UpdateLabel(static_cast<MnemonicLabel&>(*pWidget), window);
      break;
    case WindowKind::kEdit:
      UpdateEdit(*qobject_cast<QLineEdit*>(pWidget), window);
      break;
    case WindowKind::kButton:
      if (auto* const pGroup = qobject_cast<QGroupBox*>(pWidget)) {
        pGroup->setTitle(QtTextOf(window.sText));
      } else {
        UpdateButton(*qobject_cast<QAbstractButton*>(pWidget), window);
      }
      break;
    case WindowKind::kList:
    case WindowKind::kCombo:
      UpdateItems(window, shown);
      break;
    case WindowKind::kArea:
    case WindowKind::kDialog:
      break;
  }
}

// Items are mostly added at the end; anything else fills the list anew.
void QtView::UpdateItems(const HeadlessWindow& window, Shown& shown) {
  auto* const pList = qobject_cast<QListWidget*>(shown.pInside);
  auto* const pCombo = qobject_cast<QComboBox*>(shown.pInside);
  const std::vector<ListItem>& items = window.content.items;
  const bool bGrown =
      shown.items.size() <= items.size() &&
      std::equal(shown.items.begin(), shown.items.end(), items.begin(),
                 [](const CString& sText, const ListItem& item) { return sText == item.sText; });
  if (!bGrown) {
    shown.items.clear();
    if (pList != nullptr) pList->clear();
    if (pCombo != nullptr) pCombo->clear();
  }
  while (shown.items.size() < items.size()) {
    shown.items.push_back(items[shown.items.size()].sText);
    const QString text = QtTextOf(shown.items.back());
    if (pList != nullptr) pList->addItem(text);
    if (pCombo != nullptr) pCombo->addItem(text);
  }
  const int nSelection = window.content.nSelection;
  if (pList != nullptr && pList->currentRow() != nSelection) pList->setCurrentRow(nSelection);
  if (pCombo == nullptr) return;
  if (pCombo->currentIndex() != nSelection) pCombo->setCurrentIndex(nSelection);
  if (pCombo->isEditable() && pCombo->currentText() != QtTextOf(window.sText)) {
    pCombo->setEditText(QtTextOf(window.sText));
  }
}

void QtView::UpdateLook(const HeadlessWindow& window, Shown& shown) {
  if (shown.hFont == window.hFont) return;
  shown.hFont = window.hFont;
  if (window.hFont != FontHandle{}) {
    shown.pInside->setFont(FontOf(m_input.FontOf(window.hFont)).font);
  }
}

// What the control did by itself, with the mouse, the clipboard or a key of its own.
void QtView::MirrorEdit(WindowHandle hEdit) {
  const Shown* const pShown = Find(hEdit);
  if (m_bShowing || pShown == nullptr) return;
  const auto& edit = *qobject_cast<QLineEdit*>(pShown->pInside);
  m_input.Edited(hEdit, TextOf(edit.text()));
  const int nFirst = edit.hasSelectedText() ? edit.selectionStart() : edit.cursorPosition();
  m_input.Selected(hEdit, nFirst, nFirst + static_cast<int>(edit.selectedText().size()));
}

}  // namespace ald
