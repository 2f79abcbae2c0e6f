#include "ui/list_model.h"

#include <QDateTime>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <algorithm>
#include <limits>

namespace zelvo {

namespace {

bool sameColumns(const std::vector<ListColumn>& a, const std::vector<ListColumn>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const ListColumn& x, const ListColumn& y) {
    return x.caption == y.caption && x.width == y.width && x.toRight == y.toRight;
  });
}

constexpr QSize kThumbnail{ListModel::kPictureWidth, ListModel::kPictureHeight};

// Only photographs are made smaller while they are read: drawings in black and white would lose their lines.
QImage smallImage(const QString& path) {
  QImageReader reader(path);
  reader.setAutoTransform(true);
  if (const QSize size = reader.size(); size.isValid() && reader.format() == "jpeg")
    reader.setScaledSize(size.scaled(kThumbnail * 2, Qt::KeepAspectRatio));
  const QImage image = reader.read();
  return image.isNull() ? image
                        : image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                              .scaled(kThumbnail, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

QPixmap thumbnail(const QString& path) {
  QPixmap shown(kThumbnail);
  shown.fill(Qt::transparent);
  const QImage image = smallImage(path);
  QPainter(&shown).drawImage((kThumbnail.width() - image.width()) / 2, (kThumbnail.height() - image.height()) / 2,
                             image);
  return shown;
}

}  // namespace

bool ListModel::follow(const ListView& list) {
  const std::size_t count = list.count();
  if (rows_ == list.rows && revision_ == list.revision && count_ == count && sameColumns(columns_, list.columns))
    return false;
  beginResetModel();
  columns_ = list.columns;
  rows_ = list.rows;
  revision_ = list.revision;
  count_ = count;
  endResetModel();
  return true;
}

int ListModel::rowCount(const QModelIndex& parent) const {
  constexpr std::size_t kMost = std::numeric_limits<int>::max() / 64;  // a table widget measures its rows in pixels
  return parent.isValid() ? 0 : static_cast<int>(std::min(count_, kMost));
}

int ListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || !rows_)
    return {};
  const auto column = static_cast<std::size_t>(index.column());
  if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
    return QString::fromStdString(rows_->cell(static_cast<std::size_t>(index.row()), column));
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue(Qt::AlignVCenter | (columns_[column].toRight ? Qt::AlignRight : Qt::AlignLeft));
  if (role == Qt::DecorationRole && column == 0)
    return pictureOf(static_cast<std::size_t>(index.row()));
  return {};
}

// A camera's photographs are large: each is read once, as small as it is shown. Names stand below one another beside
// pictures of any shape.
QVariant ListModel::pictureOf(std::size_t row) const {
  const QString path = QString::fromStdString(rows_->picture(row));
  if (path.isEmpty())
    return {};
  const QString key = path + QFileInfo(path).lastModified().toString(Qt::ISODate);
  QPixmap picture;
  if (!QPixmapCache::find(key, &picture)) {
    picture = thumbnail(path);
    QPixmapCache::insert(key, picture);
  }
  return picture;
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= static_cast<int>(columns_.size()))
    return {};
  const ListColumn& column = columns_[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole)
    return QString::fromStdString(column.caption);
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue(Qt::AlignVCenter | (column.toRight ? Qt::AlignRight : Qt::AlignLeft));
  return {};
}

}  // namespace zelvo
