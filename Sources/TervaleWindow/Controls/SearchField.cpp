#include "TervaleWindow/Controls/SearchField.h"

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Symbol.h"
#include "TervaleWindow/Controls/KeyTable.h"
#include "TervaleWindow/Style/FieldPainting.h"

#include <QAction>
#include <QEvent>
#include <QKeyEvent>

namespace tervale {

namespace {

constexpr int usualWidth = 200;

} // namespace

SearchField::SearchField(const QString& prompt, QWidget* parent)
    : QLineEdit(parent),
      magnifier(addAction(QIcon(), QLineEdit::LeadingPosition)) {
    setPlaceholderText(prompt);
    setAccessibleName(prompt);
    setClearButtonEnabled(true);
    nameButtons();
    markAsSearchField(*this);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    followPalette();
}

// They are buttons without a text, and the toolkit gives them no name.
void SearchField::nameButtons() {
    magnifier->setText(tr("Search"));
    connect(magnifier, &QAction::triggered, this, [this] { setFocus(Qt::OtherFocusReason); });
    for (QAction* action : findChildren<QAction*>()) {
        if (action == magnifier)
            continue;
        action->setText(tr("Clear"));
        // The toolkit hides it from sight alone while there is nothing to clear.
        const auto follow = [this, action] { action->setVisible(!text().isEmpty()); };
        connect(this, &QLineEdit::textChanged, action, follow);
        follow();
    }
}

QSize SearchField::sizeHint() const {
    return {usualWidth, QLineEdit::sizeHint().height()};
}

void SearchField::keyPressEvent(QKeyEvent* event) {
    if (isKeyOf(KeyCommand::clearFilter, *event) && !text().isEmpty())
        clear();
    else
        QLineEdit::keyPressEvent(event);
}

void SearchField::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        followPalette();
}

void SearchField::followPalette() {
    const Colors colors = Colors::of(palette());
    magnifier->setIcon(symbolIcon(Symbol::magnifyingGlass, colors.secondary));
    if (!colors.highContrast) {
        if (testAttribute(Qt::WA_SetPalette))
            setPalette({});
        return;
    }
    // The usual colour of a prompt is too pale for high contrast.
    QPalette readable;
    readable.setColor(QPalette::PlaceholderText, colors.secondary);
    if (palette().color(QPalette::PlaceholderText) != colors.secondary)
        setPalette(readable);
}

} // namespace tervale
