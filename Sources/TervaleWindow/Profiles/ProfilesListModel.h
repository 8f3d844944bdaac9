#pragma once

#include "Profiles/UUID.h"

#include <QAbstractListModel>
#include <QString>

#include <cstddef>
#include <vector>

namespace tervale {

/// The rows of the list of profiles. Tells the view of the smallest change, so that it keeps its
/// place.
class ProfilesListModel final : public QAbstractListModel {
    Q_OBJECT

  public:
    struct Row {
        UUID id;
        QString name;
        /// Whether the profile has problems.
        bool marked = false;

        bool operator==(const Row&) const = default;
    };
    static constexpr int markedRole = Qt::UserRole;

    using QAbstractListModel::QAbstractListModel;

    const std::vector<Row>& rows() const { return shown; }
    void setRows(std::vector<Row> rows);
    /// Tells nobody of a row that it has already.
    void setRow(std::size_t place, Row row);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    std::vector<Row> shown;
};

} // namespace tervale
