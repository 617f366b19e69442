#include "storage/Katalog.h"

#include <cstdio>
#include <cstring>

#include "storage/Schreibvorgang.h"

namespace dv {

Katalog::Katalog(SpeicherUmgebung& u)
    : Alias(u),
      Bildformate(u),
      Extras(u),
      FilterName(u),
      Formate(u),
      Funktion(u),
      Genre(u),
      Sprachen(u),
      Tonformate(u),
      Verpackung(u),
      VormerkName(u),
      Box(u),
      DVD(u),
      Film(u),
      Titel(u),
      Person(u),
      TagStempel(u),
      Filter(u),
      DatenVersion(u),
      Box_Extras(u),
      DVD_Box(u),
      DVD_Extras(u),
      DVD_Film(u),
      Film_Alias(u),
      Film_Bildformat(u),
      Film_Fkt(u),
      Film_Genre(u),
      Film_Person(u),
      Film_Sprachen(u),
      Film_Untertitel(u),
      Vormerk(u),
      Vormerk2(u),
      umgebung(u) {}

std::vector<Tabelle*> Katalog::alle() {
    return {&Alias,       &Bildformate, &Extras,      &FilterName,    &Formate,
            &Funktion,    &Genre,       &Sprachen,    &Tonformate,    &Verpackung,
            &VormerkName, &Box,         &DVD,         &Film,          &Titel,
            &Person,      &TagStempel,  &Filter,      &DatenVersion,  &Box_Extras,
            &DVD_Box,     &DVD_Extras,  &DVD_Film,    &Film_Alias,    &Film_Bildformat,
            &Film_Fkt,    &Film_Genre,  &Film_Person, &Film_Sprachen, &Film_Untertitel,
            &Vormerk,     &Vormerk2};
}

bool Katalog::vollstaendig() {
    for (Tabelle* t : alle())
        if (!umgebung.fs->existiert(t->pfad())) return false;
    return Funktion.eine(1) && Funktion.eine(2);
}

bool Katalog::erzeugeDatenbank() {
    DV_TRACE(Funktion.trace(), kTraceTabelle, "Datenbank erzeugen");
    // The usual start finds everything in place and writes nothing, so it needs
    // no writer lock; a catalogue still to be made is made as one operation.
    if (vollstaendig()) return legeAn();
    Schreibvorgang vorgang(umgebung);
    const bool ok = legeAn();
    return vorgang.abschliessen() && ok;
}

bool Katalog::legeAn() {
    bool alleDa = true;
    for (Tabelle* t : alle()) alleDa = t->create() && alleDa;
    const char* saat[2] = {"Darsteller", "Regie"};
    for (long id = 1; id <= 2; ++id) {
        ListenElement* gefunden = Funktion.select(id);
        if (gefunden)
            Funktion.delListe(gefunden);
        else
            Funktion.insert(saat[id - 1]);
    }
    return alleDa;
}

bool Katalog::leseVersion(DatenVersionSatz& v) {
    return DatenVersion.lese(v);
}

bool Katalog::schreibeVersion(const DatenVersionSatz& v) {
    return DatenVersion.schreibe(v);
}

DatenVersionSatz Katalog::holeVersion() {
    DatenVersionSatz v;
    if (!leseVersion(v)) {
        schreibeVersion(aktuelleVersion());
        if (!leseVersion(v)) v = aktuelleVersion();
    }
    return v;
}

DatenVersionSatz aktuelleVersion() {
    DatenVersionSatz v;
    for (int i = 0; i < 4; ++i) v.teil[i] = kVersionTeile[i];
    std::memcpy(v.datum, kVersionDatum, 8);
    v.datum[8] = '\0';
    return v;
}

std::string versionsText(const DatenVersionSatz& v) {
    char text[128];
    std::snprintf(text, sizeof text, "%ld.%ld.%ld.%ld - %s", v.teil[0], v.teil[1], v.teil[2],
                  v.teil[3], v.datum);
    return text;
}

}  // namespace dv
