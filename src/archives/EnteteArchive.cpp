#include "archives/EnteteArchive.h"

#include <string>

#include "commun/Formes.h"
#include "commun/Texte.h"
#include "platform/FormesLocales.h"

void AccrocherMembre(std::string_view nom, uint32_t taille, ArbreArchive& tv)
{
    const std::string chemin = AnsiEnTexte(Trim(nom));
    std::string_view dernier;
    const int32_t dossier = tv.Dossiers(chemin, '/', dernier);
    tv.Membre(dossier, std::string(dernier) + ':' + FormatTaille(taille) + "::");
}
