#pragma once

#include <QKeySequence>
#include <QObject>
#include <QPointer>

#include <vector>

class QAction;
class QLineEdit;

namespace tervale {

class ProfilesView;

/// The commands of the Edit menu that act on what is being edited: text, and the profiles. Undo and
/// Redo are those of the text field that has the focus as long as it has something to undo or redo,
/// and otherwise those of the profiles pane; then they name the step.
class EditCommands final : public QObject {
    Q_OBJECT

  public:
    explicit EditCommands(QObject* parent);

    /// In the menu's order; a null stands for a separator.
    std::vector<QAction*> menu() const;
    /// Those whose keys no text field has by itself.
    std::vector<QAction*> history() const { return {undo, redo}; }
    /// The pane whose history they are for; null while another one is shown.
    void serve(ProfilesView* pane);
    /// While the menu is open, only what there is something to do for.
    void enablePossible();
    /// Otherwise all that there might be something to do for, so that no key is lost on what was
    /// impossible when the menu was last seen.
    void enableUsual();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct TextCommand {
        QAction* action;
        bool (*isPossible)(const QLineEdit& field);
    };

    QAction* command(const QString& title, const QList<QKeySequence>& keys);
    /// `run` is a member function of the field that has the focus.
    template <class Run>
    void addTextCommand(const QString& title, QKeySequence::StandardKey key, Run run,
                        bool (*isPossible)(const QLineEdit& field));
    /// The text that is being edited just now, or null.
    QLineEdit* textField() const;
    bool fieldUndoes() const;
    bool fieldRedoes() const;
    bool paneUndoes() const;
    bool paneRedoes() const;
    void followFocus();
    void followHistory();
    void showSteps();

    QAction* undo;
    QAction* redo;
    std::vector<TextCommand> textCommands;
    /// What has the focus, or had it when a menu was opened.
    QPointer<QWidget> focused;
    QPointer<ProfilesView> profiles;
};

} // namespace tervale
