#include "desktop/forms/table_model.h"

#include "desktop/look/shown_text.h"

namespace tarvok::desktop {

bool TableModel::IsOpen(const QModelIndex& index) const {
  return table_.open() && index.row() + 1 == table_.current_row() &&
         index.column() + 1 == table_.current_column();
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return page_.ToLetters(IsOpen(index) ? table_.OpenText()
                                           : table_.Cell(index.row() + 1, index.column() + 1));
    default:
      return {};
  }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role == Qt::DisplayRole) {
    return orientation == Qt::Horizontal ? QVariant(Words(table_.column(section + 1).title))
                                         : QVariant(section + 1);
  }
  if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal) {
    return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  }
  return {};
}

Qt::ItemFlags TableModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (index.isValid() && table_.EntryOf(index.row() + 1, index.column() + 1) != Entry::kReadOnly)
    flags |= Qt::ItemIsEditable;
  return flags;
}

void TableModel::Refresh() {
  const int rows = table_.rows();
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginRemoveRows({}, rows, rows_ - 1);
    rows_ = rows;
    endRemoveRows();
  }
  if (rows > 0) Q_EMIT dataChanged(index(0, 0), index(rows - 1, table_.columns() - 1));
}

}  // namespace tarvok::desktop
