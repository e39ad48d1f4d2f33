// Feeds the extractor of one extension with the fuzzer's bytes, as a file in memory.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "commun/Texte.h"
#include "extractors/Aiguillage.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille)
{
    const int memoire = memfd_create("entree", MFD_CLOEXEC);
    if (memoire < 0 || write(memoire, octets, taille) != static_cast<ssize_t>(taille))
        abort();
    const Fichier fichier(memoire);
    EtatExtracteurs etat;
    std::string description;
    ExtraireDescription({fichier, "D:\\entree." EXTENSION, EXTENSION, etat}, description);
    if (!Utf8Valide(description))
        abort();
    return 0;
}
