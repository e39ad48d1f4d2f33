// Feeds what reads answers of drives and CDDB servers with the fuzzer's bytes.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "audiocd/EntreeCddb.h"
#include "audiocd/IdentiteDisque.h"
#include "audiocd/ReponsesToc.h"
#include "commun/Texte.h"

namespace {

template <typename Reponse>
Reponse Remplir(const uint8_t* octets, size_t taille)
{
    Reponse reponse{};
    std::copy_n(octets, std::min(taille, reponse.size()), reponse.begin());
    return reponse;
}

void Exiger(bool vrai)
{
    if (!vrai)
        abort();
}

// The texts that are made of a table of contents, too.
[[maybe_unused]] void toc(const uint8_t* octets, size_t taille)
{
    const auto texte = BuildTocText(Remplir<ReponseToc>(octets, taille)).value_or("");
    for (const std::string& essai : {texte, std::string(octets, octets + taille)}) {
        const std::string identite = CalMediaID(essai);
        Exiger(identite.empty() || MotSur(identite));
        Exiger(ArgumentsRequete(essai).find_first_not_of("0123456789abcdef+-") == std::string::npos);
        CalTracklength(essai);
        CalAlbumlength(essai);
    }
}

[[maybe_unused]] void cdtexte(const uint8_t* octets, size_t taille)
{
    const std::string texte = BuildCdText(Remplir<ReponseCdText>(octets, taille));
    Exiger(Utf8Valide(texte) && (texte.empty() || texte.ends_with('|')));
}

[[maybe_unused]] void cddb(const uint8_t* octets, size_t taille)
{
    const std::string reponse(octets, octets + taille);
    CodeReponse(reponse);
    const auto lignes = LignesReponse(reponse);
    for (const std::string_view ligne : lignes) {
        const DisqueTrouve disque = LireDisqueTrouve(ligne);
        Exiger(Utf8Valide(disque.titre) && Utf8Valide(disque.categorie));
    }
    EntreeCddb entree;
    LireEntreeCddb(lignes, entree);
    for (const std::string* texte : {&entree.artiste, &entree.album, &entree.genre, &entree.annee, &entree.notes})
        Exiger(Utf8Valide(*texte));
    Exiger(entree.noms.size() <= lignes.size() && entree.notesPistes.size() <= lignes.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille)
{
    REPONSE(octets, taille);
    return 0;
}
