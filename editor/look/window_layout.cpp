#include "editor/look/window_layout.h"

#include <QCryptographicHash>
#include <QEvent>
#include <QSettings>

namespace korrin::editor {
namespace {

// To be counted up when panels go or come, so that they are not hidden by what was kept before.
constexpr int version = 1;
constexpr const char* geometryKey = "window/geometry";
constexpr const char* panelsKey = "window/panels";

// Qt takes half of a layout for one with no panels: what is not whole must not reach it.
QByteArray digestOf(const QByteArray& bytes) {
  return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

void keep(QSettings& settings, const char* key, const QByteArray& bytes) {
  settings.setValue(key, digestOf(bytes) + bytes);
}

QByteArray kept(const QSettings& settings, const char* key) {
  const QByteArray value = settings.value(key).toByteArray();
  const QByteArray bytes = value.mid(QCryptographicHash::hashLength(QCryptographicHash::Sha256));
  return value.startsWith(digestOf(bytes)) ? bytes : QByteArray();
}

class WindowLayout : public QObject {
 public:
  explicit WindowLayout(QMainWindow& window)
      : QObject(&window), window_(window), standard_(window.saveState(version)) {
    setObjectName("windowLayout");
    const QSettings settings;
    window_.restoreGeometry(kept(settings, geometryKey));
    if (!window_.restoreState(kept(settings, panelsKey), version)) reset();
    window_.installEventFilter(this);
  }

  void reset() { window_.restoreState(standard_, version); }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Close) {
      QSettings settings;
      keep(settings, geometryKey, window_.saveGeometry());
      keep(settings, panelsKey, window_.saveState(version));
    }
    return false;
  }

 private:
  QMainWindow& window_;
  QByteArray standard_;
};

}  // namespace

void rememberLayout(QMainWindow& window) { new WindowLayout(window); }

void resetLayout(QMainWindow& window) {
  if (auto* layout = window.findChild<QObject*>("windowLayout", Qt::FindDirectChildrenOnly))
    static_cast<WindowLayout*>(layout)->reset();
}

}  // namespace korrin::editor
