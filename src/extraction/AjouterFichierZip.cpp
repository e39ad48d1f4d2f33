#include "extraction/AjouterFichierZip.h"

#include <algorithm>
#include <string>
#include <vector>

#include "archives/ListerArchive.h"
#include "commun/Formes.h"
#include "store/Base.h"
#include "store/CycleBase.h"

namespace {

// The fields of a member; missing ones are blank. Of four fields the last is the time, else the fifth. A ":" in a name
// shifts them (kept, particularité Xlecteurs18).
struct Membre {
    std::string nom, taille = " ", date = " ", heure = " ";
};

Membre LireMembre(std::string_view texte)
{
    std::vector<std::string> champs;
    for (size_t fin = texte.find(':'); fin != texte.npos && champs.size() < 4; fin = texte.find(':')) {
        champs.emplace_back(texte.substr(0, fin));
        texte.remove_prefix(fin + 1);
    }
    champs.emplace_back(texte.substr(0, texte.find(':')));

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
    LignesArchive(Base& base, const ArchiveOuverte& archive)
        : archive_(archive), prefixe_("A" + Str(archive.numero)), liste_(base.OpenRecordset("Liste"))
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
    // Archive code of a node: its place is counted from the media's number on (kept, particularité Xlecteurs19).
    std::string Code(int32_t indice) const { return prefixe_ + Str(archive_.media + indice - 1); }

    const ArchiveOuverte& archive_;
    std::string prefixe_;
    Recordset liste_;
    bool extensionsAccrues_ = false;
};

}  // namespace

void AjouterFichierZip(const ArchiveOuverte& archive)
{
    const ArbreArchive tv = ListerArchive(archive.fichier, archive.extension, archive.arret);
    Base base = OpenDatabase(BaseCourante());
    LignesArchive lignes(base, archive);
    for (int32_t i = ArbreArchive::Racine + 1; i <= tv.Nombre(); ++i)
        if (archive.arret.stop_requested() || ExtractionAbandonnee() || !lignes.Ajouter(tv, i))
            break;
    if (lignes.ExtensionsAccrues())
        EnregistrerExtensions();
}
