#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <cstdlib>

#include "aldlib/platform/qt/internal/QtText.h"
#include "aldlib/platform/qt/internal/QtView.h"

// Fonts, colours and what programs draw.
namespace ald {
namespace {

constexpr std::size_t kKeptFonts = 200;
constexpr int kUsualHeight = 12;
constexpr std::intptr_t kIconStop = 0x7F01;
constexpr std::intptr_t kIconQuestion = 0x7F02;
constexpr std::intptr_t kIconExclamation = 0x7F03;
constexpr std::intptr_t kIconInformation = 0x7F04;

QColor ColorOf(Color nColor) {
  return QColor(static_cast<int>(nColor & 0xFF), static_cast<int>(nColor >> 8 & 0xFF),
                static_cast<int>(nColor >> 16 & 0xFF));
}

// A negative height is that of the letters, a positive one that of the line.
QFont MakeFont(const tagLOGFONTA& asked) {
  QFont font;
  if (asked.lfFaceName[0] != '\0') font.setFamily(QtTextOf(asked.lfFaceName));
  font.setWeight(asked.lfWeight > 0 ? static_cast<QFont::Weight>(std::min(asked.lfWeight, 1000))
                                    : QFont::Normal);
  font.setItalic(asked.lfItalic != 0);
  font.setUnderline(asked.lfUnderline != 0);
  font.setStrikeOut(asked.lfStrikeOut != 0);
  const int nAsked = asked.lfHeight != 0 ? std::abs(asked.lfHeight) : kUsualHeight;
  font.setPixelSize(nAsked);
  if (asked.lfHeight > 0) {
    const int nLine = std::max(1, QFontMetrics(font).height());
    font.setPixelSize(std::max(1, nAsked * nAsked / nLine));
  }
  return font;
}

}  // namespace

const QtView::Font& QtView::FontOf(const tagLOGFONTA& font) {
  const std::string sKey(reinterpret_cast<const char*>(&font), sizeof font);
  const auto it = m_fonts.find(sKey);
  if (it != m_fonts.end()) return it->second;
  if (m_fonts.size() >= kKeptFonts) m_fonts.clear();
  const QFont made = MakeFont(font);
  return m_fonts.emplace(sKey, Font{made, QFontMetrics(made)}).first->second;
}

// The average is that of the letters, which is what dialog units are made of.
TextMetrics QtView::MetricsOf(const tagLOGFONTA& font) {
  static const QString letters =
      QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  const QFontMetrics& metrics = FontOf(font).metrics;
  const auto nLetters = static_cast<int>(letters.size());
  const int nAverage = (metrics.horizontalAdvance(letters) + nLetters / 2) / nLetters;
  return {metrics.height(), metrics.ascent(), std::max(1, nAverage), metrics.maxWidth()};
}

std::int32_t QtView::WidthOf(const tagLOGFONTA& font, std::string_view sText) {
  return FontOf(font).metrics.horizontalAdvance(QtTextOf(sText));
}

void QtView::SetColors(WindowHandle hWindow, const ControlColors& colors) {
  Shown* const pShown = Find(hWindow);
  if (pShown == nullptr) return;
  const auto same = [&](const ControlColors& before) {
    return before.nText == colors.nText && before.nBrush == colors.nBrush;
  };
  if (pShown->colors && same(*pShown->colors)) return;
  pShown->colors = colors;
  QWidget& widget = *pShown->pInside;
  QPalette palette = widget.palette();
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Active, role, ColorOf(colors.nText));
    palette.setColor(QPalette::Inactive, role, ColorOf(colors.nText));
  }
  for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
    palette.setColor(role, ColorOf(colors.nBrush));
  }
  widget.setPalette(palette);
  widget.setAutoFillBackground(true);
}

void QtView::BeginPaint(WindowHandle hWindow) {
  Show();
  Shown* const pShown = Find(hWindow);
  if (pShown == nullptr || pShown->drawing.isNull()) return;
  pShown->drawing = QPixmap();
  pShown->pInside->update();
}

void QtView::Draw(const DrawnItem& item, const tagLOGFONTA& font) {
  Shown* const pShown = Find(item.hWindow);
  if (pShown == nullptr) return;
  QWidget& widget = *pShown->pInside;
  const QSize size = widget.size() * widget.devicePixelRatioF();
  if (size.isEmpty()) return;
  if (pShown->drawing.size() != size) {
    QPixmap drawing(size);
    drawing.fill(Qt::transparent);
    drawing.setDevicePixelRatio(widget.devicePixelRatioF());
    if (!pShown->drawing.isNull()) QPainter(&drawing).drawPixmap(0, 0, pShown->drawing);
    pShown->drawing = drawing;
  }
  Paint(pShown->drawing, item, font);
  widget.update();
}

void QtView::Paint(QPaintDevice& device, const DrawnItem& item, const tagLOGFONTA& font) {
  QPainter painter(&device);
  if (item.clip) painter.setClipRect(QtRectOf(*item.clip));
  const QRect place = QtRectOf(item.place);
  switch (item.kind) {
    case DrawnItem::Kind::kText: {
      const Font& used = FontOf(font);
      if (item.bOpaque) painter.fillRect(place, ColorOf(item.nBackground));
      painter.setFont(used.font);
      painter.setPen(ColorOf(item.nColor));
      painter.drawText(place.left(), place.top() + used.metrics.ascent(), QtTextOf(item.sText));
      break;
    }
    case DrawnItem::Kind::kLine: {
      // The last point of a line is not drawn.
      const auto before = [](int nFrom, int nTo) { return nTo - (nTo > nFrom) + (nTo < nFrom); };
      painter.setPen(ColorOf(item.nColor));
      const Rect line{QtMeasure(item.place.left), QtMeasure(item.place.top),
                      QtMeasure(item.place.right), QtMeasure(item.place.bottom)};
      if (line.left == line.right && line.top == line.bottom) break;
      painter.drawLine(line.left, line.top, before(line.left, line.right),
                       before(line.top, line.bottom));
      break;
    }
    case DrawnItem::Kind::kFill:
      painter.fillRect(place, ColorOf(item.nColor));
      break;
    case DrawnItem::Kind::kIcon:
      painter.drawPixmap(place, PixmapOf(item.hIcon));
      break;
  }
}

// The widget paints by itself first, and over that comes what the program drew.
bool QtView::FilterPaint(QWidget& widget, WindowHandle hWindow, QEvent& event) {
  const Shown* const pShown = Find(hWindow);
  if (pShown == nullptr || pShown->drawing.isNull() || pShown->pInside != &widget) return false;
  static_cast<QObject&>(widget).event(&event);
  QPainter painter(&widget);
  painter.drawPixmap(0, 0, pShown->drawing);
  return true;
}

QPixmap PixmapOf(IconHandle hIcon) {
  QStyle::StandardPixmap icon{};
  switch (static_cast<std::intptr_t>(hIcon)) {
    case kIconStop:
      icon = QStyle::SP_MessageBoxCritical;
      break;
    case kIconQuestion:
      icon = QStyle::SP_MessageBoxQuestion;
      break;
    case kIconExclamation:
      icon = QStyle::SP_MessageBoxWarning;
      break;
    case kIconInformation:
      icon = QStyle::SP_MessageBoxInformation;
      break;
    default:
      return {};
  }
  return QApplication::style()->standardIcon(icon).pixmap(kHeadlessIcon.cx, kHeadlessIcon.cy);
}

}  // namespace ald
