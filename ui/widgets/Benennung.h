#pragma once
// Names for screen readers and tests: every control gets an objectName and an
// accessible name equal to its visible label (without the mnemonic's '&' and a
// closing ':'), taken from its own text (buttons, check boxes, group boxes) or from
// the label that names it (a QLabel's buddy, the label of a form row).

#include <QString>

class QWidget;

namespace dv::ui {

// The label as a name: "&Titel:" -> "Titel".
QString alsName(const QString& beschriftung);

// Names w with the label, unless it carries an objectName already.
void benenne(QWidget& w, const QString& beschriftung);

// Walks every child of wurzel and names the controls that have no name yet.
void benenneSteuerelemente(QWidget& wurzel);

}  // namespace dv::ui
