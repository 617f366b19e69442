#pragma once
// The film dialog ("WP_film"): "<<<Neuer Film>>>" for a new film, else
// "Film [<title>]". Tabs, each reachable by its mnemonic and by Ctrl+Tab:
// "Allgemein" (title, original title, alternative titles, FSK, length, year),
// "Genre", "Bildformate", "Untertitel" (assigned and available lists with a
// filter and "Neu..."), "Sprachen" (language with sound format), "Personen"
// (persons with function and aliases), "Inhalt" and "Kommentar" (the side texts).
// Nothing is stored before OK; a text the code page cannot hold is refused then.

#include <vector>

#include "app/PersonenDienst.h"
#include "app/Werte.h"
#include "ui/dialoge/objekte/EditDlg.h"

class QComboBox;
class QListWidget;
class QPlainTextEdit;
class QSpinBox;
class QTabWidget;

namespace dv::ui {

class ListenPaar;
class PersonenSeite;
class SprachenSeite;
class TextFeld;

// What the film dialog offers to choose from.
struct FilmKataloge {
    std::vector<Eintrag> genres, bildformate, sprachen, tonformate, funktionen;
    std::vector<PersonZeile> personen;
};

// Every catalogue the film dialog offers, read once for one opening.
FilmKataloge ladeFilmKataloge(CApplikation& app);

class FilmDlg : public EditDlg {
    Q_OBJECT
  public:
    // The tabs by their place.
    enum Seite { Allgemein, Genre, Bildformate, Untertitel, Sprachen, Personen, Inhalt, Kommentar };

    FilmDlg(QWidget* eltern, CApplikation& app, const FilmWerte& w, const FilmKataloge& k);

    FilmWerte werte() const;
    void zeigeSeite(Seite s);
    QTabWidget* seiten() const { return seiten_; }
    PersonenSeite* personenSeite() const { return personen_; }
    SprachenSeite* sprachenSeite() const { return sprachen_; }

  protected:
    bool pruefeEingaben() override;

  private:
    QWidget* allgemein(const FilmWerte& w);
    QWidget* mitRand(QWidget* inhalt, const QString& name = QString());
    QPlainTextEdit* textFeld();
    void neuePerson(const QString& text);
    bool darstellbar(const QPlainTextEdit& feld, Seite s);

    FilmWerte alt_;
    QTabWidget* seiten_;
    TextFeld* titel_ = nullptr;
    TextFeld* original_ = nullptr;
    QListWidget* alternativ_ = nullptr;
    TextFeld* neuerAlternativ_ = nullptr;
    QComboBox* fsk_ = nullptr;
    QSpinBox* laenge_ = nullptr;
    QSpinBox* jahr_ = nullptr;
    ListenPaar* genres_;
    ListenPaar* bildformate_;
    ListenPaar* untertitel_;
    SprachenSeite* sprachen_;
    PersonenSeite* personen_;
    QPlainTextEdit* inhalt_ = nullptr;
    QPlainTextEdit* kommentar_ = nullptr;
    bool inhaltCrLf_ = false;
    bool kommentarCrLf_ = false;
};

}  // namespace dv::ui
