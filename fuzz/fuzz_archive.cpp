// Feeds one archive reader with the fuzzer's bytes, as a file in memory.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "archives/ConstruireTv.h"
#include "archives/ListerArj.h"
#include "archives/ListerLha.h"
#include "archives/ListerZip.h"
#include "platform/Texte.h"

namespace {

void Lister(std::string_view archive, const Fichier& fichier, ArbreArchive& tv)
{
    if (archive == "zip")
        ConstruireTv(ListerZip(fichier), tv);
    else if (archive == "lha")
        ListerLha(fichier, tv);
    else if (archive == "arj")
        ListerArj(fichier, tv);
    else
        abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille)
{
    const int memoire = memfd_create("entree", MFD_CLOEXEC);
    if (memoire < 0 || write(memoire, octets, taille) != static_cast<ssize_t>(taille))
        abort();
    ArbreArchive tv;
    Lister(ARCHIVE, Fichier(memoire), tv);
    for (int32_t indice = 2; indice <= tv.Nombre(); ++indice)
        if (tv[indice].parent < 1 || tv[indice].parent >= indice || !Utf8Valide(tv[indice].texte))
            abort();
    return 0;
}
