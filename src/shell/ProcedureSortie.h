#pragma once

#include "commun/Dialogues.h"

class QWidget;

// The exit procedure: asks, shows the waiting window over the window in front, compacts the base, deletes the scratch
// icon. True when the program must now end; false when the user refused.
bool ProcedureSortie(QWidget* devant, Dialogues& dialogues);
