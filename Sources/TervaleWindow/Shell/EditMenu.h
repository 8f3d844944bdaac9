#pragma once

#include <QMenu>
#include <QPointer>

class QLineEdit;

namespace tervale {

/// The commands that every text field knows, for the field that has the focus. The keys reach a
/// field by themselves; the entries are there for who looks for them in the menu.
class EditMenu final : public QMenu {
    Q_OBJECT

  public:
    explicit EditMenu(QWidget* parent = nullptr);

  private:
    void addCommands();
    void followFocus(QWidget* focused);
    /// Offers everything, so that no key is lost on what was impossible when the menu was last
    /// seen.
    void offerAll();
    void offerWhatIsPossible();

    QPointer<QLineEdit> field;
    /// One a command, in their order.
    QList<QAction*> entries;
};

} // namespace tervale
