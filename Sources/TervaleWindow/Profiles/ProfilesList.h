#pragma once

#include "TervaleWindow/Profiles/DraftOwner.h"
#include "TervaleWindow/Profiles/ProfilesListModel.h"

#include <QWidget>

class QListView;

namespace tervale {

class SymbolButton;

/// The left column of the profiles pane: the list of the draft's profiles, and the buttons that
/// add, duplicate and remove one.
class ProfilesList final : public QWidget {
    Q_OBJECT

  public:
    static constexpr int columnWidth = 219;

    /// `draft` outlives the list.
    explicit ProfilesList(DraftOwner& draft, QWidget* parent = nullptr);

    /// What takes the focus of this column: the list, or without profiles what adds one.
    QWidget& focusTarget();

  signals:
    /// The user added a profile, which is selected now.
    void added();

  private:
    void makeList();
    QWidget* makeToolbar();
    ProfilesListModel::Row rowOf(std::size_t index) const;
    void showRows();
    void showRow(std::size_t index);
    void showSelection();
    void selectRow(const std::optional<UUID>& id);
    void keepFocus();
    std::optional<UUID> selectedId() const;

    DraftOwner& draft;
    ProfilesListModel* rows;
    QListView* list;
    SymbolButton* addButton;
    SymbolButton* duplicateButton;
    SymbolButton* removeButton;
    /// While the list is brought in line with the draft, its selection is not the user's.
    bool displaying = false;
};

} // namespace tervale
