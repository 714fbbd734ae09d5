#include "aldlib/platform/qt/QtDesktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QLibraryInfo>
#include <QUrl>
#include <cstring>
#include <optional>

#include "aldlib/platform/Platform.h"
#include "aldlib/platform/posix/PathMapper.h"
#include "aldlib/platform/qt/internal/QtText.h"
#include "aldlib/platform/qt/internal/QtView.h"

namespace ald {
namespace {

// Whether an X server answers and lets this process in.
bool OpensX() {
  if (qEnvironmentVariableIsEmpty("DISPLAY")) return false;
  QLibrary xcb(QStringLiteral("xcb"), 1);
  using Connect = void* (*)(const char*, int*);
  using HasError = int (*)(void*);
  using Disconnect = void (*)(void*);
  const auto connect = reinterpret_cast<Connect>(xcb.resolve("xcb_connect"));
  const auto hasError = reinterpret_cast<HasError>(xcb.resolve("xcb_connection_has_error"));
  const auto disconnect = reinterpret_cast<Disconnect>(xcb.resolve("xcb_disconnect"));
  if (connect == nullptr || hasError == nullptr || disconnect == nullptr) return false;
  void* const pConnection = connect(nullptr, nullptr);
  const bool bOpen = hasError(pConnection) == 0;
  disconnect(pConnection);
  return bOpen;
}

bool OpensWayland() {
  const QString name = qEnvironmentVariable("WAYLAND_DISPLAY");
  if (name.isEmpty()) return false;
  return QFileInfo::exists(QDir(qEnvironmentVariable("XDG_RUNTIME_DIR")).filePath(name));
}

bool HasPlugin(const QString& platform) {
  const QDir folder(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
  return !folder.entryList({QStringLiteral("libq%1*.so").arg(platform)}, QDir::Files).isEmpty();
}

// Of the platforms that are asked for, "xcb;offscreen:...", Qt takes the first that works.
bool Opens(const QString& platforms) {
  for (const QString& entry : platforms.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
    const QString platform = entry.section(QLatin1Char(':'), 0, 0);
    if (!HasPlugin(platform)) continue;
    if (platform == QLatin1String("xcb") && !OpensX()) continue;
    if (platform.startsWith(QLatin1String("wayland")) && !OpensWayland()) continue;
    return true;
  }
  return false;
}

// What the arguments ask for, or else the environment.
QString PlatformsOf(int argc, char** argv) {
  for (int i = 1; i + 1 < argc; ++i) {
    if (std::strcmp(argv[i], "-platform") == 0) return QString::fromLocal8Bit(argv[i + 1]);
  }
  const QString asked = qEnvironmentVariable("QT_QPA_PLATFORM");
  return asked.isEmpty() ? QStringLiteral("xcb;wayland") : asked;
}

bool HasApplication() {
  return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

// Hands the help file to whatever the person's desktop opens such files with. Nobody there knows
// topics by their number, so the file opens at its beginning.
class QtHelp : public Help {
 public:
  bool OpenTopic(WindowHandle, const CString& sFile, std::uint32_t) override {
    const QString path = QFile::decodeName(m_paths.Native(sFile).c_str());
    return QFileInfo::exists(path) && QDesktopServices::openUrl(QUrl::fromLocalFile(path));
  }

 private:
  PathMapper m_paths;
};

}  // namespace

struct QtDesktop::Parts {
  std::unique_ptr<QApplication> pApplication;  // null if the host has one, or there is no display
  HeadlessDesktop windows{CurrentPlatform().clock};
  QtHelp help;
  std::optional<QtView> view;

  Parts() { windows.RecordOutput(false); }
};

bool QtDesktop::HasDisplay() {
  return HasApplication() || Opens(PlatformsOf(0, nullptr));
}

QtDesktop::QtDesktop(int& argc, char** argv) : m_pParts(std::make_unique<Parts>()) {
  if (!HasApplication() && QCoreApplication::instance() == nullptr &&
      Opens(PlatformsOf(argc, argv))) {
    m_pParts->pApplication = std::make_unique<QApplication>(argc, argv);
  }
  if (HasApplication()) m_pParts->view.emplace(m_pParts->windows);
}

QtDesktop::QtDesktop(QApplication&) : m_pParts(std::make_unique<Parts>()) {
  m_pParts->view.emplace(m_pParts->windows);
}

// Windows that are still there go while their widgets can.
QtDesktop::~QtDesktop() {
  m_pParts->view.reset();
}

bool QtDesktop::IsOnScreen() const {
  return m_pParts->view.has_value();
}

Desktop QtDesktop::Ports() {
  const Desktop ports = m_pParts->windows.Ports();
  Help& help = IsOnScreen() ? m_pParts->help : ports.help;
  return {ports.queue,     ports.windows, ports.controls, ports.canvas, ports.menus,
          ports.presenter, help};
}

void QtDesktop::SetApplicationName(const CString& sName) {
  m_pParts->windows.SetApplicationName(sName);
}

HeadlessDesktop& QtDesktop::Headless() {
  return m_pParts->windows;
}

QWidget* QtDesktop::WidgetOf(WindowHandle hWindow) {
  if (!IsOnScreen()) return nullptr;
  m_pParts->view->Show();
  return m_pParts->view->OuterOf(hWindow);
}

std::size_t QtDesktop::Widgets() const {
  return IsOnScreen() ? m_pParts->view->Count() : 0;
}

}  // namespace ald
