#include "extraction/AjouterFichierZip.h"

#include <algorithm>
#include <string>
#include <vector>

#include "archives/ListerArchive.h"
#include "catalogue/Cles.h"
#include "commun/Formes.h"
#include "store/CycleBase.h"

namespace {

// The fields of a member; missing ones are blank. Of four fields the last is the time, else the fifth. A ":" in a name
// shifts them (kept, particularité 26).
struct Membre {
    std::string nom, taille = " ", date = " ", heure = " ";
};

Membre LireMembre(std::string_view texte)
{
    std::vector<std::string_view> champs;
    for (bool dernier = false; !dernier;) {
        dernier = champs.size() == 4 || texte.find(':') == texte.npos;
        champs.push_back(Detacher(texte, ':'));
    }

    Membre membre;
    membre.nom = champs[0];
    membre.taille = champs[1];
    if (champs.size() > 2)
        membre.date = champs[2];
    if (champs.size() > 3) {
        membre.heure = champs.back();
        std::replace(membre.heure.begin(), membre.heure.end(), 'h', ':');
    }
    return membre;
}

// Writes the rows of one archive, one after the other.
class LignesArchive {
public:
    explicit LignesArchive(const ArchiveOuverte& archive)
        : archive_(archive), liste_(archive.base.OpenRecordset("Liste"))
    {
    }

    bool Ajouter(const ArbreArchive& tv, int32_t indice)
    {
        const ArbreArchive::Noeud& noeud = tv[indice];
        const bool dossier = noeud.texte.find(':') == noeud.texte.npos;
        const Membre membre = dossier ? Membre{noeud.texte} : LireMembre(noeud.texte);
        liste_.AddNew();
        liste_.Poser("Répertoire", Code(noeud.parent));
        liste_.Poser("RepertoirePere", dossier ? Code(indice) : "0");
        liste_.Poser("Nom", membre.nom);
        liste_.Poser("Taille", membre.taille);
        liste_.Poser("TypeF", " ");
        liste_.Poser("DateF", membre.date);
        liste_.Poser("Heure", membre.heure);
        liste_.Poser("attribut", dossier ? "Z" : " ");
        liste_.Poser("NCatalogue", archive_.media);
        extensionsAccrues_ |= AjouterExtension(ExtensionFichier(membre.nom));
        return liste_.Update();
    }

    bool ExtensionsAccrues() const { return extensionsAccrues_; }

private:
    // Archive code of a node: its place is counted from the media's number on (kept, particularité 27).
    std::string Code(int32_t indice) const { return CodeArchive(archive_.numero, archive_.media, indice); }

    const ArchiveOuverte& archive_;
    Recordset liste_;
    bool extensionsAccrues_ = false;
};

}  // namespace

void AjouterFichierZip(const ArchiveOuverte& archive)
{
    const ArbreArchive tv = ListerArchive(archive.fichier, archive.extension, archive.arret);
    LignesArchive lignes(archive);
    for (int32_t i = ArbreArchive::Racine + 1; i <= tv.Nombre(); ++i)
        if (archive.arret.stop_requested() || !lignes.Ajouter(tv, i))
            break;
    if (lignes.ExtensionsAccrues())
        EnregistrerExtensions(archive.base);
}
