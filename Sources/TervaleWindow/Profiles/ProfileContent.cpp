#include "TervaleWindow/Profiles/ProfileContent.h"

#include "Base/Overloaded.h"
#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Profiles/CurveEditor.h"
#include "TervaleWindow/Profiles/ScheduleEditor.h"
#include "TervaleWindow/Profiles/ScheduleRow.h"
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

QVBoxLayout* columnOf(QWidget* widget) {
    auto* column = new QVBoxLayout(widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    return column;
}

class LoadContent final : public ProfileContent {
  public:
    explicit LoadContent(QWidget* parent)
        : ProfileContent(parent),
          editor(new CurveEditor({0, 100}, QStringLiteral("%"), curveInsets)) {
        auto* note = new TextLabel(tr("Follows CPU or GPU load, whichever is higher."),
                                   TextStyle::body(), TextColor::secondary);
        note->setOverflow(Overflow::wrap);
        Card* card = cardAround(note, this);
        card->layout()->addWidget(editor);
        columnOf(this)->addWidget(card);
        connect(editor, &CurveEditor::curveChanged, this,
                [this](const Curve& curve) { emit kindChanged(kind::Load{curve}); });
    }

    void display(const Profile& profile, std::span<const Profile>) override {
        editor->setCurve(std::get<kind::Load>(profile.kind).curve);
    }

  private:
    CurveEditor* editor;
};

class ScheduleContent final : public ProfileContent {
  public:
    explicit ScheduleContent(QWidget* parent) : ProfileContent(parent), editor(new ScheduleEditor) {
        Card* card = cardAround(editor, this);
        card->setContentsMargins(card->contentsMargins() - ScheduleRow::overhang());
        columnOf(this)->addWidget(card);
        connect(editor, &ScheduleEditor::windowsChanged, this,
                [this](const std::vector<Window>& windows) {
                    emit kindChanged(kind::Schedule{windows});
                });
    }

    void display(const Profile& profile, std::span<const Profile> all) override {
        editor->display(std::get<kind::Schedule>(profile.kind).windows, all);
    }

  private:
    ScheduleEditor* editor;
};

} // namespace

ProfileContent* ProfileContent::make(Model& model, const Profile& profile, QWidget* parent) {
    return std::visit(
        overloaded{
            [&](const kind::Temperature&) -> ProfileContent* {
                return new TemperatureContent(model, parent);
            },
            [&](const kind::Load&) -> ProfileContent* { return new LoadContent(parent); },
            [&](const kind::Schedule&) -> ProfileContent* { return new ScheduleContent(parent); },
        },
        profile.kind);
}

} // namespace tervale
