#pragma once
// The code-page edge for the programs: catalogue texts (Windows-1252) to and from
// UTF-8 and QString. The programs convert only here, at the screen and the terminal.

#include "base/Zeichensatz.h"
