#pragma once

#include "TervaleWindow/Model/Model.h"
#include "TervaleWindow/Profiles/DraftOwner.h"

#include <QWidget>

#include <cstddef>

class QLineEdit;

namespace tervale {

class Card;
class ProfileContent;

/// The form of one profile of the draft while it is selected: its name, what depends on its kind,
/// and its problems. Controls that show what is told already keep cursor and focus.
class ProfileEditor final : public QWidget {
    Q_OBJECT

  public:
    /// For the profile that is selected now and no other. Both outlive the form.
    ProfileEditor(Model& model, DraftOwner& draft, QWidget* parent = nullptr);

    /// Whether this form is for that profile.
    bool isFor(const Profile& other) const;
    /// At the sides of the cards, where the editor is so wide.
    static int marginAt(int width, const QStyle& style);
    /// Shows the profile anew.
    void display();
    /// Brings the focus to the name, which the user's typing replaces.
    void editName();
    /// The profile is no longer selected; the form edits nothing from now on.
    void retire();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void rename(const QString& text);
    void endTyping();
    void showName();
    void showProblems();

    DraftOwner& draft;
    UUID id;
    std::size_t kind;
    bool retired = false;
    /// A text that comes from the draft is nobody's wish.
    bool displaying = false;
    QLineEdit* name;
    ProfileContent* content;
    Card* problemsCard;
    DraftOwner::Problems problemsShown;
};

} // namespace tervale
