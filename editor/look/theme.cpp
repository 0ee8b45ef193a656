#include "editor/look/theme.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPalette>
#include <QStyleFactory>
#include <QSvgRenderer>

namespace korrin::editor {
namespace {

struct Colours {
  QRgb window, base, alternate, button, text, muted, edge, accent, onAccent, desk, stage;
};

constexpr Colours lightColours = {0xfff4f6f8, 0xffffffff, 0xfff7f9fb, 0xffffffff,
                                  0xff1f2933, 0xff6b7785, 0xffd5dbe1, 0xff2563c9,
                                  0xffffffff, 0xffdfe4ea, 0xfffdfcf9};
constexpr Colours darkColours = {0xff22272e, 0xff1b1f25, 0xff20252b, 0xff2c323a,
                                 0xffe3e8ee, 0xff94a0ad, 0xff3a424c, 0xff5b9bff,
                                 0xff0d1420, 0xff15181c, 0xffe9ebe6};

const Colours& coloursNow() { return isDark() ? darkColours : lightColours; }

QString name(QRgb colour) { return QColor(colour).name(); }

QPalette paletteOf(const Colours& colours) {
  QPalette palette;
  palette.setColor(QPalette::Window, colours.window);
  palette.setColor(QPalette::WindowText, colours.text);
  palette.setColor(QPalette::Base, colours.base);
  palette.setColor(QPalette::AlternateBase, colours.alternate);
  palette.setColor(QPalette::Text, colours.text);
  palette.setColor(QPalette::PlaceholderText, colours.muted);
  palette.setColor(QPalette::Button, colours.button);
  palette.setColor(QPalette::ButtonText, colours.text);
  palette.setColor(QPalette::ToolTipBase, colours.base);
  palette.setColor(QPalette::ToolTipText, colours.text);
  palette.setColor(QPalette::Highlight, colours.accent);
  palette.setColor(QPalette::HighlightedText, colours.onAccent);
  palette.setColor(QPalette::Link, colours.accent);
  palette.setColor(QPalette::Mid, colours.edge);
  palette.setColor(QPalette::Dark, colours.edge);
  palette.setColor(QPalette::Light, colours.base);
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, colours.muted);
  return palette;
}

QString sheetOf(const Colours& colours) {
  QFile file(":/look/window.qss");
  if (!file.open(QIODevice::ReadOnly)) return {};
  QString sheet = QString::fromUtf8(file.readAll());
  const std::pair<const char*, QRgb> names[] = {
      {"@window", colours.window}, {"@base", colours.base},     {"@alternate", colours.alternate},
      {"@button", colours.button}, {"@text", colours.text},     {"@muted", colours.muted},
      {"@edge", colours.edge},     {"@accent", colours.accent}, {"@onAccent", colours.onAccent}};
  // The longer of two names that begin alike must go first.
  for (const auto& [word, colour] : names)
    sheet.replace(QString(word) + ";", name(colour) + ";")
        .replace(QString(word) + " ", name(colour) + " ");
  return sheet;
}

}  // namespace

void apply(Theme theme, QApplication& application) {
  const Colours& colours = theme == Theme::dark ? darkColours : lightColours;
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setPalette(paletteOf(colours));
  application.setStyleSheet(sheetOf(colours));
}

bool isDark() { return QApplication::palette().color(QPalette::Window).lightness() < 128; }

Theme desktopTheme(const QApplication&) { return isDark() ? Theme::dark : Theme::light; }

QColor accentColour() { return lightColours.accent; }
QColor guideColour() { return {0xe0, 0x3a, 0x7c}; }
QColor lockedColour() { return {0xb4, 0x6a, 0x12}; }
QColor deskColour() { return coloursNow().desk; }
QColor stageColour() { return coloursNow().stage; }
QColor stageInkColour() { return lightColours.text; }
QColor gridColour() { return {0x1f, 0x29, 0x33, 34}; }

QIcon themedIcon(const QString& name) {
  QFile file(":/icons/" + name + ".svg");
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QByteArray svg = file.readAll();
  QIcon icon;
  const QPalette palette = QApplication::palette();
  const std::pair<QIcon::Mode, QColor> modes[] = {
      {QIcon::Normal, palette.color(QPalette::ButtonText)},
      {QIcon::Disabled, palette.color(QPalette::Disabled, QPalette::ButtonText)}};
  for (const auto& [mode, colour] : modes) {
    QByteArray coloured = svg;
    QSvgRenderer renderer(coloured.replace("currentColor", colour.name().toUtf8()));
    for (const int size : {20, 40}) {
      QPixmap pixmap(size, size);
      pixmap.fill(Qt::transparent);
      QPainter painter(&pixmap);
      if (mode == QIcon::Disabled) painter.setOpacity(0.5);
      renderer.render(&painter);
      painter.end();
      icon.addPixmap(pixmap, mode);
    }
  }
  return icon;
}

}  // namespace korrin::editor
