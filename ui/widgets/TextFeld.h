#pragma once
// A one-line text field for a catalogue text: it takes at most the number of
// characters its record field holds (the limits of app/Grenzen.h) and only
// characters the catalogue's code page can store, so an edit never fails on a
// text the field accepted. Shows the limit as its tool tip.

#include <QLineEdit>
#include <string>

namespace dv::ui {

class TextFeld : public QLineEdit {
    Q_OBJECT
  public:
    // grenze: the longest text in characters (bytes of the code page).
    explicit TextFeld(int grenze, QWidget* eltern = nullptr);

    // The text in the catalogue's code page, and back.
    std::string text8() const;
    void setzeText8(const std::string& text);
};

}  // namespace dv::ui
