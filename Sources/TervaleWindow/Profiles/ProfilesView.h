#pragma once

#include "Profiles/Bridge.h"
#include "Profiles/Validation.h"
#include "TervaleWindow/Model/Model.h"
#include "TervaleWindow/Profiles/DraftOwner.h"

#include <QWidget>

class QHBoxLayout;
class QPushButton;
class QScrollArea;
class QStackedWidget;

namespace tervale {

class ProfileEditor;
class ProfilesList;
class SymbolLabel;
class TextLabel;

/// The page on which profiles are made and edited. It works on a draft, which it sends to the
/// agent as a whole; only the agent's answer makes it the saved list.
class ProfilesView final : public QWidget {
    Q_OBJECT

  public:
    /// The model and the bridge outlive the view.
    ProfilesView(Model& model, Bridge& bridge, QWidget* parent = nullptr,
                 DraftOwner::Validator validator = problems);
    ~ProfilesView() override;

    /// Sends the draft, if it differs from what is saved, has no problems and is not too long.
    void save();
    /// Throws the draft away for what is saved.
    void revert();
    /// The steps of editing since the pane is shown; to be looked at.
    const QUndoStack& history() const { return draft.history(); }
    void undo();
    void redo();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    QWidget* makeHeader();
    QWidget* makeDetail();
    QWidget* makeEmptyState();
    QWidget* makeBottomBar();
    void followModel();
    void enable(QPushButton& button, bool enabled);
    void showInvitation();
    void showEditor();
    void showButtons();

    Model& model;
    Bridge& bridge;
    DraftOwner draft;
    ProfilesList* list;
    QStackedWidget* detail;
    QScrollArea* scrollArea;
    ProfileEditor* editor = nullptr;
    /// What the empty state says to do.
    TextLabel* invitation;
    SymbolLabel* notice;
    QHBoxLayout* bottomRow;
    QPushButton* revertButton;
    QPushButton* saveButton;
};

} // namespace tervale
