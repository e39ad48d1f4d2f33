#include "browser/EditionVue.h"

#include <cstdlib>
#include <string>

#include "browser/FrmDescription.h"
#include "browser/FrmIcone.h"
#include "browser/FrmModif.h"
#include "browser/MessagesVue.h"
#include "catalogue/Cles.h"
#include "catalogue/Medias.h"
#include "catalogue/Modifications.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"
#include "store/CycleBase.h"

namespace {

// Label and icon of a media as its row has them.
struct LigneMedia {
    bool trouvee = false;
    std::string label, icone;
};

LigneMedia LireLigneMedia(const std::string& numero)
{
    Base base = OuvrirBase();
    Recordset media = LireMedia(base, numero);
    if (media.Eof())
        return {};
    return {true, std::string(media.Texte("Label")), std::string(media.Texte("Icone"))};
}

std::string NumeroMedia(const ArbreCatalogue& arbre, int32_t noeud)
{
    return AnalyserCle(arbre[arbre.Media(noeud)].cle).catalogue;
}

// A directory stands in the tree too, and so does an archive, there by the number of its row.
int32_t NoeudDeLItem(const ArbreCatalogue& arbre, const ItemListe& item)
{
    if (item.EstRepertoire())
        return arbre.Chercher(item.cle);
    const CleItem cle = AnalyserCleItem(item.cle);
    return arbre.Chercher(CleArchive(std::atoll(cle.code.c_str()), std::atoll(cle.catalogue.c_str())));
}

}  // namespace

EditionVue::EditionVue(QWidget& fenetre, Dialogues& dialogues, Navigateur& navigateur, ModeleArbre& modeleArbre,
                       ModeleListe& modeleListe, ImagesCatalogue& images)
    : fenetre_(fenetre),
      dialogues_(dialogues),
      navigateur_(navigateur),
      modeleArbre_(modeleArbre),
      modeleListe_(modeleListe),
      images_(images)
{
}

EditionVue::Suite EditionVue::Executer(Commande commande, int32_t rang)
{
    if (navigateur_.arbre.Media(navigateur_.arbre.Selection()) == ArbreCatalogue::Aucun)
        return Rien;
    switch (commande) {
        case Commande::ModifierLabel: return ModifierLabel();
        case Commande::ModifierIcone: return ModifierIcone();
        case Commande::SupprimerMedia: return SupprimerMedia();
        case Commande::RenommerRepertoire:
        case Commande::RenommerArchive: return RenommerNoeud();
        case Commande::SupprimerRepertoire: return SupprimerNoeud(Messages[SupprimerLeRepertoire]);
        case Commande::SupprimerArchive: return SupprimerNoeud(Messages[SupprimerLArchive]);
        case Commande::DecrireNoeud: return DecrireNoeud();
        default: break;
    }
    if (rang < 0)
        return Rien;
    switch (commande) {
        case Commande::RenommerItem: return RenommerItem(rang);
        case Commande::RetirerItem: return RetirerItem(rang);
        case Commande::DecrireItem: return DecrireItem(rang);
        default: return Rien;
    }
}

bool EditionVue::DemanderNom(int mode, const char* titre, const std::string& invite, std::string& nom)
{
    FrmModif fenetre(dialogues_, static_cast<FrmModif::Mode>(mode), titre, invite, nom, &fenetre_);
    if (fenetre.exec() != QDialog::Accepted)
        return false;
    nom = fenetre.Nom();
    return true;
}

EditionVue::Suite EditionVue::ModifierLabel()
{
    ArbreCatalogue& arbre = navigateur_.arbre;
    const int32_t noeud = arbre.Media(arbre.Selection());
    const std::string numero = NumeroMedia(arbre, noeud);
    LigneMedia media = LireLigneMedia(numero);
    if (!media.trouvee ||
        !DemanderNom(FrmModif::NomMedia, Messages[TitreLabel], "Nom actuel du Média : ", media.label) ||
        !EnregistrerMedia(numero, ChampMedia::Label, media.label))
        return Rien;
    navigateur_.RenommerNoeud(noeud, media.label);
    modeleArbre_.AnnoncerNoeud(noeud);
    return Montrer;
}

EditionVue::Suite EditionVue::ModifierIcone()
{
    ArbreCatalogue& arbre = navigateur_.arbre;
    const int32_t noeud = arbre.Media(arbre.Selection());
    const std::string numero = NumeroMedia(arbre, noeud);
    const LigneMedia media = LireLigneMedia(numero);
    if (!media.trouvee)
        return Rien;
    FrmIcone fenetre(dialogues_, media.label, media.icone, &fenetre_);
    if (fenetre.exec() != QDialog::Accepted || fenetre.Icone().empty() ||
        !EnregistrerMedia(numero, ChampMedia::Icone, fenetre.Icone()))
        return Rien;
    arbre.DonnerIcone(noeud, fenetre.Icone());
    images_.OublierMedia(noeud);
    modeleArbre_.AnnoncerNoeud(noeud);
    return Montrer;
}

EditionVue::Suite EditionVue::SupprimerMedia()
{
    ArbreCatalogue& arbre = navigateur_.arbre;
    const int32_t noeud = arbre.Media(arbre.Selection());
    const std::string numero = NumeroMedia(arbre, noeud);
    const LigneMedia media = LireLigneMedia(numero);
    if (!media.trouvee || !dialogues_.DemanderAvantPerte(Messages[SupprimerLeMedia] + media.label + " ?") ||
        !::SupprimerMedia(Str(std::atoll(numero.c_str()))))
        return Rien;
    modeleArbre_.Retirer(noeud);
    return Suivre;
}

EditionVue::Suite EditionVue::RenommerNoeud()
{
    ArbreCatalogue& arbre = navigateur_.arbre;
    const int32_t noeud = arbre.Selection();
    const int64_t numero = NumeroDuNoeud(arbre, noeud);
    const std::string ancien(arbre[noeud].texte);
    std::string nom = ancien;
    if (!numero || !DemanderNom(FrmModif::NomRep, Messages[TitreRepertoire], Messages[NomActuel], nom))
        return Rien;
    // The tree text of the media is made of what the nodes show.
    navigateur_.RenommerNoeud(noeud, nom);
    if (!RenommerAlias(numero, nom, arbre, std::atoll(NumeroMedia(arbre, noeud).c_str())))
        navigateur_.RenommerNoeud(noeud, ancien);
    modeleArbre_.AnnoncerNoeud(noeud);
    return Montrer;
}

EditionVue::Suite EditionVue::SupprimerNoeud(const char* question)
{
    ArbreCatalogue& arbre = navigateur_.arbre;
    const int32_t noeud = arbre.Selection();
    if (!dialogues_.DemanderAvantPerte(question) || !::SupprimerNoeud(arbre, noeud))
        return Rien;
    modeleArbre_.Retirer(noeud);
    return Suivre;
}

// Asks in the words for directories: kept, particularité 59.
EditionVue::Suite EditionVue::RenommerItem(int32_t rang)
{
    ArbreCatalogue& arbre = navigateur_.arbre;
    ItemListe item = navigateur_.liste[rang];
    const int64_t numero = NumeroDeLItem(item);
    const std::string ancien(item.cellules[ColNom]);
    std::string nom = ancien;
    if (!numero || !DemanderNom(FrmModif::NomRepLv,
                                item.EstRepertoire() ? Messages[TitreRepertoire] : "Modifier le nom du fichier",
                                Messages[NomActuel], nom))
        return Rien;
    const int32_t noeud = NoeudDeLItem(arbre, item);
    const std::string ancienNoeud(noeud == ArbreCatalogue::Aucun ? std::string_view() : arbre[noeud].texte);
    if (noeud != ArbreCatalogue::Aucun)
        navigateur_.RenommerNoeud(noeud, nom);
    const bool ecrit = RenommerAlias(numero, nom, arbre, std::atoll(AnalyserCleItem(item.cle).catalogue.c_str()));
    if (ecrit) {
        item.cellules[ColNom] = nom;
        modeleListe_.Remplacer(rang, item);
    } else if (noeud != ArbreCatalogue::Aucun) {
        navigateur_.RenommerNoeud(noeud, ancienNoeud);
    }
    modeleArbre_.AnnoncerNoeud(noeud);
    return Montrer;
}

EditionVue::Suite EditionVue::RetirerItem(int32_t rang)
{
    const ItemListe item = navigateur_.liste[rang];
    const std::string question =
        "Voulez-vous réellement retirer '" + std::string(item.cellules[ColNom]) + "' du catalogue ?";
    if (!dialogues_.DemanderAvantPerte(question) || !SupprimerItem(item))
        return Rien;
    const int32_t noeud = NoeudDeLItem(navigateur_.arbre, item);
    if (noeud != ArbreCatalogue::Aucun)
        modeleArbre_.Retirer(noeud);
    modeleListe_.Retirer(rang);
    if (navigateur_.liste.Nombre() == 0)
        navigateur_.MontrerDescriptionNoeud();
    return Montrer;
}

EditionVue::Suite EditionVue::DecrireNoeud()
{
    const ArbreCatalogue& arbre = navigateur_.arbre;
    const int32_t noeud = arbre.Selection();
    if (!EstDescriptible(arbre, noeud))
        return Rien;
    navigateur_.MontrerDescriptionNoeud();
    return Decrire(arbre[noeud].texte, [&arbre, noeud](const Description& description) {
        return EnregistrerDescription(description, arbre, noeud);
    });
}

EditionVue::Suite EditionVue::DecrireItem(int32_t rang)
{
    const ItemListe item = navigateur_.liste[rang];
    if (!EstDescriptible(item))
        return Rien;
    navigateur_.CliquerItem(rang);
    return Decrire(item.cellules[ColNom],
                   [this, rang](const Description& description) { return EnregistrerItem(rang, description); });
}

EditionVue::Suite EditionVue::Decrire(std::string_view nom, const std::function<bool(const Description&)>& enregistrer)
{
    FrmDescription fenetre(
        dialogues_, nom, navigateur_.description,
        [&](const Description& description) {
            if (!enregistrer(description))
                return false;
            navigateur_.description = description;
            return true;
        },
        &fenetre_);
    fenetre.exec();
    return Montrer;
}

bool EditionVue::EnregistrerItem(int32_t rang, const Description& description)
{
    ItemListe item = navigateur_.liste[rang];
    if (!EnregistrerDescription(description, item))
        return false;
    item.cellules[ColDescription] = Trim(JoindrePhoto(description)).empty() ? "" : Messages[MarqueOui];
    modeleListe_.Remplacer(rang, item);
    return true;
}

EditionVue::Suite EditionVue::SupprimerPhoto(int32_t rang)
{
    if (!dialogues_.DemanderAvantPerte(Messages[SupprimerLImage]))
        return Rien;
    const Description sansPhoto{navigateur_.description.texte, ""};
    const ArbreCatalogue& arbre = navigateur_.arbre;
    const bool ecrite = navigateur_.descriptionDeNoeud ? EnregistrerDescription(sansPhoto, arbre, arbre.Selection())
                                                       : rang >= 0 && EnregistrerItem(rang, sansPhoto);
    if (ecrite)
        navigateur_.description = sansPhoto;
    return Montrer;
}
