// Feeds the reader of one kind of archive with the fuzzer's bytes, as a file in memory.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>

#include ENTETE
#include "platform/Texte.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille)
{
    const int memoire = memfd_create("entree", MFD_CLOEXEC);
    if (memoire < 0 || write(memoire, octets, taille) != static_cast<ssize_t>(taille))
        abort();
    ArbreArchive tv;
    LISTER(Fichier(memoire), tv);
    for (int32_t i = 2; i <= tv.Nombre(); ++i)
        if (tv[i].parent < 1 || tv[i].parent >= i || !Utf8Valide(tv[i].texte))
            abort();
    return 0;
}
