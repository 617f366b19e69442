#pragma once
// What the retrieval dialogs share besides their lists: the file dialogs for the
// text files kept in the template folder "Vorlagen/" (search definitions, watch
// lists, stamp tags, overview settings) and the message for a service's refusal.
// The file dialogs open with open() and call on with the native path; the
// services ask the overwrite question themselves, so the dialog does not.

#include <QString>
#include <functional>
#include <string>

class QWidget;

namespace dv {
class CApplikation;
class Ergebnis;
}  // namespace dv

namespace dv::ui {

using DateiWeiter = std::function<void(const std::string& pfad)>;

// A save dialog in "Vorlagen/" proposing vorschlag ("Suche.asc"), filter
// "<endung> Datei (*.<endung>)". name: the dialog's objectName.
void waehleSpeicherDatei(QWidget* eltern, CApplikation& app, const QString& name,
                         const QString& vorschlag, const QString& endung, DateiWeiter weiter);
// The open dialog "Bitte das Verzeichnis auswählen" in "Vorlagen/" with "*.<endung>".
void waehleLadeDatei(QWidget* eltern, CApplikation& app, const QString& name, const QString& endung,
                     DateiWeiter weiter);

// zeigeErgebnis through the application's Benutzer: "Hinweis" for wrong input,
// "Fehler..." else; nothing for success or a question answered No. Returns e.ok().
bool meldeErgebnis(CApplikation& app, const Ergebnis& e);

}  // namespace dv::ui
