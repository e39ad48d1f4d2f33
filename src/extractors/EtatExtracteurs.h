#pragma once

#include "extractors/DecrireLBM.h"
#include "extractors/DecrirePCX.h"
#include "extractors/DecrireTGA.h"

// What the readers of three kinds carry from file to file, so that a field which a short file lacks is that of the
// picture before it (kept, particularité 10). Belongs to one run, or to whoever else describes files in turn.
struct EtatExtracteurs {
    EntetePcx pcx;
    EnteteTga tga;
    BlocBmhd lbm;
};
