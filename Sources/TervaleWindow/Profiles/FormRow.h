#pragma once

#include <QString>

class QGridLayout;
class QWidget;

namespace tervale {

/// The form's grid: titles of one width beside their controls, over all cards of the form.
QGridLayout* makeForm(QWidget* card);

enum class RowWidth { natural, whole };
/// Adds a row; the title is the control's name for assistive technology too.
void addFormRow(QGridLayout& form, const QString& title, QWidget* control, RowWidth width);

} // namespace tervale
