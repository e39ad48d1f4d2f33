#include "extraction/RegardLecteurs.h"

#include <algorithm>

#include "commun/Formes.h"
#include "commun/Texte.h"
#include "platform/Lecteurs.h"
#include "platform/Parcours.h"

bool LecteurVu::Amovible() const
{
    return type == LecteurAmovible || type == LecteurOptique;
}

std::vector<LecteurVu> RegarderLecteurs()
{
    std::vector<LecteurVu> lecteurs;
    for (const LettreDonnee& donnee : LettresDonnees()) {
        if (!donnee.presente)
            continue;
        const std::string racine = RacineDuLecteur(donnee.lettre);
        lecteurs.push_back({donnee.lettre, donnee.type, LibelleLecteur(donnee.lettre),
                            racine.empty() ? donnee.cible : NomEnTexte(racine)});
    }
    return lecteurs;
}

LecteurRegarde RegarderLecteur(char lettre, const std::stop_token& arret)
{
    LecteurRegarde regarde;
    regarde.lecteur.GetInfo(std::string(1, LettreCapitale(lettre)));
    regarde.infos = AfficherInfo(regarde.lecteur);
    Parcours(lettre).Lister([&](const EntreeDossier& entree) {
        regarde.noms.push_back(entree.nom + ((entree.attributs & AttributDossier) != 0 ? "\\" : ""));
        return !arret.stop_requested();
    });
    std::sort(regarde.noms.begin(), regarde.noms.end(),
              [](const std::string& a, const std::string& b) { return ComparerFrancais(a, b) < 0; });
    return regarde;
}
