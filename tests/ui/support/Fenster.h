#pragma once
// The shared set-up of the desktop tests: a temporary program folder with its
// own settings file, the application started on it with the scripted user
// answering every question, and the real main window on top. Helpers trigger a
// command by its id, choose a tree node, and find the dialog a command
// opened with open(), so each test reads as the user's steps.

#include <QApplication>
#include <QDialog>
#include <QModelIndex>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <memory>

#include "app/CApplikation.h"
#include "tests/support/FakeBenutzer.h"
#include "tests/support/TempOrdner.h"
#include "ui/CDorvanoDlg.h"

namespace dv::test {

class Fenster {
  public:
    // Starts the application in a fresh program folder; the window comes with
    // the first call of fenster(), so a test can fill the catalogue first.
    Fenster();
    ~Fenster();

    TempOrdner tmp;
    FakeBenutzer benutzer;
    Einstellungen einstellungen;
    CApplikation app;

    ui::CDorvanoDlg& fenster();
    // Closes the window (saving its position) and opens a new one.
    ui::CDorvanoDlg& neuesFenster();
    std::string programm() const { return tmp / "programm/"; }

    // The text of the last question and message of the scripted user ("" if none).
    std::string letzteFrage() const;
    std::string letzteMeldung() const;
    std::string letzterMeldungsTitel() const;

    // Triggers the command of that id; false when there is no such action or it
    // is disabled.
    bool loese(int befehlsId);
    bool aktiv(int befehlsId);

    // Makes the node of a box, DVD or film (1, 2, 3) the current one.
    bool waehle(int typ, long id);
    // The current node's display text; the texts of a node's children.
    QString aktuellerText();
    QStringList kinder(const QModelIndex& index);
    QModelIndex wurzel();
    QModelIndex knoten(int typ, long id);

    // The visible dialog of type T (optionally with that objectName) that the
    // window opened, or null.
    template <class T>
    T* dialog(const QString& name = QString()) {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            T* d = qobject_cast<T*>(w);
            if (d && d->isVisible() && (name.isEmpty() || d->objectName() == name)) return d;
        }
        return nullptr;
    }

    // A box with its DVD and film through the services; the ids.
    NeueBox neueBox(const std::string& titel, const std::string& ean = std::string());
    long neueDvd(long box, const std::string& titel);
    long neuerFilm(long dvd, const std::string& titel);

  private:
    std::unique_ptr<ui::CDorvanoDlg> fenster_;
};

// Catalogue text of a literal written in the sources (code page) as QString.
QString q(const std::string& cp1252);

}  // namespace dv::test
