#include "TervaleWindow/Profiles/ProfilesListModel.h"

#include <algorithm>
#include <utility>

namespace tervale {

namespace {

using Rows = std::vector<ProfilesListModel::Row>;

bool sameProfile(const ProfilesListModel::Row& row, const ProfilesListModel::Row& other) {
    return row.id == other.id;
}

} // namespace

void ProfilesListModel::setRows(std::vector<Row> rows) {
    const auto [oldStart, newStart] =
        std::mismatch(shown.begin(), shown.end(), rows.begin(), rows.end(), sameProfile);
    const auto [oldEnd, newEnd] =
        std::mismatch(shown.rbegin(), std::make_reverse_iterator(oldStart), rows.rbegin(),
                      std::make_reverse_iterator(newStart), sameProfile);
    const int first = static_cast<int>(oldStart - shown.begin());
    const int removed = static_cast<int>(oldEnd.base() - oldStart);
    const int added = static_cast<int>(newEnd.base() - newStart);
    if (removed > 0) {
        beginRemoveRows({}, first, first + removed - 1);
        shown.erase(oldStart, oldEnd.base());
        endRemoveRows();
    }
    if (added > 0) {
        beginInsertRows({}, first, first + added - 1);
        shown.insert(shown.begin() + first, newStart, newEnd.base());
        endInsertRows();
    }
    for (std::size_t row = 0; row < shown.size(); ++row)
        setRow(row, std::move(rows[row]));
}

void ProfilesListModel::setRow(std::size_t place, Row row) {
    if (shown[place] == row)
        return;
    shown[place] = std::move(row);
    const QModelIndex changed = index(static_cast<int>(place));
    emit dataChanged(changed, changed);
}

int ProfilesListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown.size());
}

QVariant ProfilesListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const Row& row = shown[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole)
        return row.name;
    if (role == Qt::AccessibleTextRole)
        return row.marked ? tr("%1, has problems").arg(row.name) : row.name;
    if (role == markedRole)
        return row.marked;
    return {};
}

} // namespace tervale
