#pragma once
// What both programs do before and beside the application object, from the
// operating-system layer: the program folder rule (--basis, DORVANO_BASIS, a
// portable folder, the XDG data folder), the heap preparation at start, and the
// desktop program's single instance.

#include "platform/Dateisystem.h"
#include "platform/Einzelinstanz.h"
#include "platform/Speicher.h"
