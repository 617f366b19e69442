#pragma once
// "&Objekte" on the current node: delete with its question, up and down, copy
// mode, the information list, the XML document and the playing time, expanding
// and collapsing, and reading the tree anew (F5).

#include "ui/steuerung/Steuerung.h"

namespace dv::ui {

class ObjektSteuerung : public Steuerung {
    Q_OBJECT
  public:
    explicit ObjektSteuerung(Fensterteile& teile) : Steuerung(teile) {}
    void verbinde(Aktionen& aktionen) override;

  public slots:
    void loeschen();
    void hoch();
    void runter();
    // Copy mode: the current DVD or film becomes the source (shown in bold);
    // "&Einfuegen DVD" places a copy under the current node, "&Abbrechen" ends it.
    void kopieren();
    void einfuegen();
    void kopierAbbruch();
    void infoliste();
    void xml();
    void spieldauer();
    void aufklappen();
    void zuklappen();
    void neuLaden();

  private:
    void verschiebe(bool nachOben);
};

}  // namespace dv::ui
