#pragma once

#include "TervaleWindow/Profiles/ProfilesDraft.h"

#include <QWidget>

class QListView;

namespace tervale {

class ProfilesListModel;
class SymbolButton;

/// The left column of the profiles pane: the list of profiles, and the buttons that add, duplicate
/// and remove one.
class ProfilesList final : public QWidget {
    Q_OBJECT

  public:
    static constexpr int columnWidth = 219;

    explicit ProfilesList(QWidget* parent = nullptr);

    /// Shows the draft without any signal. `marks` says of each profile whether it has problems.
    void display(const ProfilesDraft& draft, const std::vector<bool>& marks);

    /// What takes the focus of this column: the list, or without profiles what adds one.
    QWidget& focusTarget();

  signals:
    void selectionChanged(const std::optional<tervale::UUID>& id);
    void addRequested(const QString& name, const tervale::ProfileKind& kind);
    void duplicateRequested();
    void removeRequested();

  private:
    void makeList();
    QWidget* makeToolbar();
    void keepFocus(const ProfilesDraft& draft);
    void showSelection(const std::optional<UUID>& id);
    std::optional<UUID> selectedId() const;

    ProfilesListModel* rows;
    QListView* list;
    SymbolButton* addButton;
    SymbolButton* duplicateButton;
    SymbolButton* removeButton;
    /// While the list is brought in line with the draft, its selection is not the user's.
    bool displaying = false;
};

} // namespace tervale
