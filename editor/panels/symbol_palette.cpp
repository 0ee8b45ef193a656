#include "editor/panels/symbol_palette.h"

#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QPainter>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QSvgRenderer>
#include <QVBoxLayout>

#include "korrin/drawing/plot_drawing.h"
#include "korrin/drawing/symbol_catalogue.h"

#include "editor/canvas/canvas.h"
#include "editor/languages/library_texts.h"

namespace korrin::editor {
namespace {

constexpr int assetRole = Qt::UserRole;
constexpr int wordsRole = Qt::UserRole + 1;
constexpr int pictureSize = 52;

// The symbols are drawn for paper, and lie on a light tile in both themes.
QPixmap pictureOf(const PlotItem& item) {
  constexpr int density = 2;  // sharp on fine screens
  QPixmap pixmap(density * pictureSize, density * pictureSize);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0xfd, 0xfc, 0xf9));
  painter.drawRoundedRect(pixmap.rect(), 14, 14);
  QSvgRenderer renderer(QByteArray::fromStdString(drawSymbol(item)));
  const double room = 0.76 * pixmap.width();
  const QSizeF size = renderer.viewBoxF().size().scaled(room, room, Qt::KeepAspectRatio);
  QRectF box(QPointF(), size);
  box.moveCenter(QRectF(pixmap.rect()).center());
  renderer.render(&painter, box);
  painter.end();
  pixmap.setDevicePixelRatio(density);
  return pixmap;
}

class SymbolModel : public QStandardItemModel {
 public:
  using QStandardItemModel::QStandardItemModel;

  QStringList mimeTypes() const override { return {Canvas::symbolType}; }
  QMimeData* mimeData(const QModelIndexList& indexes) const override {
    auto* data = new QMimeData;
    if (!indexes.isEmpty())
      data->setData(Canvas::symbolType, indexes.first().data(assetRole).toString().toUtf8());
    return data;
  }
};

QString textOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

void fill(QStandardItemModel& model) {
  for (const Symbol& symbol : builtInSymbols()) {
    const PlotItem item = makeItem(symbol, StagePoint::zero, {});
    const QString name = inUsersLanguage(symbol.name);
    auto* row = new QStandardItem(QIcon(pictureOf(item)), name);
    const QLocale locale;
    row->setData(textOf(symbol.assetID), assetRole);
    row->setData(name + ' ' + textOf(symbol.name) + ' ' + textOf(rawValue(symbol.kind)), wordsRole);
    row->setToolTip(SymbolPalette::tr("%1, %2 m × %3 m")
                        .arg(name, locale.toString(symbol.size.width / 1000),
                             locale.toString(symbol.size.height / 1000)));
    row->setTextAlignment(Qt::AlignHCenter | Qt::AlignTop);
    row->setEditable(false);
    model.appendRow(row);
  }
}

}  // namespace

SymbolPalette::SymbolPalette(QWidget* parent)
    : QWidget(parent),
      search_(new QLineEdit(this)),
      list_(new QListView(this)),
      found_(new QSortFilterProxyModel(this)) {
  auto* model = new SymbolModel(this);
  fill(*model);
  found_->setSourceModel(model);
  found_->setFilterRole(wordsRole);
  found_->setFilterCaseSensitivity(Qt::CaseInsensitive);
  found_->sort(0);

  search_->setPlaceholderText(tr("Search symbols"));
  search_->setClearButtonEnabled(true);
  search_->setAccessibleName(tr("Search symbols"));
  list_->setModel(found_);
  list_->setViewMode(QListView::IconMode);
  list_->setIconSize({pictureSize, pictureSize});
  list_->setGridSize({112, 104});
  list_->setWordWrap(true);
  list_->setResizeMode(QListView::Adjust);
  list_->setMovement(QListView::Snap);
  list_->setDragEnabled(true);
  list_->setDragDropMode(QAbstractItemView::DragOnly);
  list_->setUniformItemSizes(true);
  list_->setAccessibleName(tr("Symbols"));
  setMinimumWidth(268);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 4, 4, 8);
  layout->setSpacing(8);
  layout->addWidget(search_);
  layout->addWidget(list_);

  connect(search_, &QLineEdit::textChanged, found_, &QSortFilterProxyModel::setFilterFixedString);
  connect(search_, &QLineEdit::returnPressed, this, [this] {
    if (found_->rowCount() > 0) Q_EMIT chosen(found_->index(0, 0).data(assetRole).toString());
  });
  connect(list_, &QListView::activated, this,
          [this](const QModelIndex& index) { Q_EMIT chosen(index.data(assetRole).toString()); });
}

}  // namespace korrin::editor
