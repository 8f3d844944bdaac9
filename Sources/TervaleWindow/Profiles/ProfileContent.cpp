#include "TervaleWindow/Profiles/ProfileContent.h"

#include "Base/Overloaded.h"
#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Controls/TightLayout.h"
#include "TervaleWindow/Profiles/CurveCanvas.h"
#include "TervaleWindow/Profiles/CurveEditor.h"
#include "TervaleWindow/Profiles/ScheduleEditor.h"
#include "TervaleWindow/Profiles/TemperatureContent.h"

#include <QVBoxLayout>

namespace tervale {

namespace {

Card* cardAround(QWidget* content, QWidget* parent) {
    auto* card = new Card(parent);
    auto* layout = new QVBoxLayout(card);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(content);
    return card;
}

class LoadContent final : public ProfileContent {
  public:
    LoadContent(DraftOwner& draft, QWidget* parent)
        : ProfileContent(draft, parent),
          editor(new CurveEditor({0, 100}, QStringLiteral("%"), curveInsets)) {
        auto* note = new TextLabel(tr("Follows CPU or GPU load, whichever is higher."),
                                   TextStyle::body(), TextColor::secondary);
        note->setOverflow(Overflow::wrap);
        Card* card = cardAround(note, this);
        card->layout()->addWidget(editor);
        tightLayout<QVBoxLayout>(this)->addWidget(card);
        connect(&editor->canvas(), &CurveCanvas::edited, this, &LoadContent::perform);
        connect(&editor->canvas(), &CurveCanvas::settled, this, &LoadContent::settle);
        display();
    }

    void display() override { editor->canvas().setCurve(shown<kind::Load>().curve); }

  protected:
    void followEdit(const ProfileEdit& edit) override {
        if (std::holds_alternative<CurveEdit>(edit))
            display();
    }

  private:
    CurveEditor* editor;
};

class ScheduleContent final : public ProfileContent {
  public:
    ScheduleContent(DraftOwner& draft, QWidget* parent)
        : ProfileContent(draft, parent),
          editor(new ScheduleEditor) {
        Card* card = cardAround(editor, this);
        card->setContentsMargins(card->contentsMargins() - SymbolButton::overhang());
        tightLayout<QVBoxLayout>(this)->addWidget(card);
        connect(editor, &ScheduleEditor::edited, this, &ScheduleContent::perform);
        connect(editor, &ScheduleEditor::settled, this, &ScheduleContent::settle);
        display();
    }

    void display() override { editor->display(shown<kind::Schedule>().windows, draft.profiles()); }

  protected:
    void followEdit(const ProfileEdit& edit) override {
        // Its name too: a schedule that runs itself names itself.
        if (std::holds_alternative<WindowEdit>(edit) ||
            std::holds_alternative<profileEdit::Rename>(edit))
            display();
    }

  private:
    ScheduleEditor* editor;
};

} // namespace

ProfileContent::ProfileContent(DraftOwner& draftShown, QWidget* parent)
    : QWidget(parent),
      draft(draftShown) {
    connect(&draft, &DraftOwner::edited, this, [this](const ProfileEdit& edit) {
        if (!retired)
            followEdit(edit);
    });
}

void ProfileContent::perform(const ProfileEdit& edit) {
    if (!retired)
        draft.perform(edit);
}

void ProfileContent::settle() {
    if (!retired)
        draft.settle();
}

ProfileContent* ProfileContent::make(Model& model, DraftOwner& draft, QWidget* parent) {
    return std::visit(
        overloaded{
            [&](const kind::Temperature&) -> ProfileContent* {
                return new TemperatureContent(model, draft, parent);
            },
            [&](const kind::Load&) -> ProfileContent* { return new LoadContent(draft, parent); },
            [&](const kind::Schedule&) -> ProfileContent* {
                return new ScheduleContent(draft, parent);
            },
        },
        draft.selected()->kind);
}

} // namespace tervale
