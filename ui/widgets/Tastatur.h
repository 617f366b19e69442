#pragma once
// Enter in an input field that adds what was typed to a list (a filter, a person,
// a title) instead of confirming the whole dialog: fast entry by keyboard.

#include <functional>

class QWidget;

namespace dv::ui {

// Enter and Return in feld call tu; the dialog's default button does not see them.
void beiEnter(QWidget& feld, std::function<void()> tu);

}  // namespace dv::ui
