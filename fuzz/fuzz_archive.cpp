// Feeds the reader of one kind of archive with the fuzzer's bytes, as a file in memory.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>

#include "extraction/AjouterFichierZip.h"
#include "commun/Texte.h"
#include "archives/ListerArchive.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille)
{
    const int memoire = memfd_create("entree", MFD_CLOEXEC);
    if (memoire < 0 || write(memoire, octets, taille) != static_cast<ssize_t>(taille))
        abort();
    const ArbreArchive tv = ListerArchive(Fichier(memoire), ARCHIVE);
    for (int32_t i = ArbreArchive::Racine + 1; i <= tv.Nombre(); ++i)
        if (tv[i].parent < ArbreArchive::Racine || tv[i].parent >= i || !Utf8Valide(tv[i].texte))
            abort();
    return 0;
}
