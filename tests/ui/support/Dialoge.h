#pragma once
// Small steps of a user in the retrieval dialogs: press a button by its name,
// pick an entry of a combo box by its text, read the rows of a list, answer the
// file dialog and the one-line input a dialog opened with open().

#include <QComboBox>
#include <QFileDialog>
#include <QPushButton>
#include <QStringList>
#include <string>

namespace dv::ui {
class ListenAnsicht;
}

namespace dv::test {

// Clicks the button of that objectName below w; false when there is none or it is disabled.
bool klicke(QWidget& w, const QString& name);
// Makes the entry with that text current; false when there is none.
bool setze(QComboBox& c, const QString& text);
// The rows of the list in the order shown, columns joined by " | ".
QStringList zeilen(const ui::ListenAnsicht& l);
// Accepts the file dialog named name below w with the file pfad.
bool nimmDatei(QWidget& w, const QString& name, const std::string& pfad);
// Types text into the one-line input dialog of that objectName (a child of w) and accepts it.
bool gibEin(QWidget& w, const QString& name, const QString& text);

}  // namespace dv::test
