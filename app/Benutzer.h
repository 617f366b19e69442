#pragma once
// The interface through which every layer asks the user and shows messages; the
// desktop program implements it with dialogs, dorvano-cli with the terminal.

#include "base/Benutzer.h"
