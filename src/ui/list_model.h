#pragma once

#include <QAbstractTableModel>
#include <memory>
#include <vector>

#include "form/control.h"

namespace zelvo {

/// The rows of a list as the table widget asks for them: only those in sight are ever read.
class ListModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  static constexpr int kPictureWidth = 96, kPictureHeight = 64;  ///< most pixels of a picture beside its row

  /// Takes what the list holds now; true when that is something else than before.
  bool follow(const ListView& list);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QVariant pictureOf(std::size_t row) const;

  std::vector<ListColumn> columns_;
  std::shared_ptr<const ListRows> rows_;
  std::uint64_t revision_ = 0;
  std::size_t count_ = 0;
};

}  // namespace zelvo
