#include "extraction/VerifierCatalogue.h"

#include "catalogue/Medias.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"
#include "platform/FormesLocales.h"
#include "platform/OperationsFichiers.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Transaction.h"

namespace {

int64_t EcrireCatalogue(Recordset& enregistrements, const DemandeMedia& demande)
{
    const std::string_view nom = Trim(demande.nom);
    enregistrements.AddNew();
    const int64_t numero = enregistrements.Numero();
    enregistrements.Poser("Identifiant", Trim(demande.identifiant));
    // A name that is a number gets a "_", so that it can never be taken for a media number.
    enregistrements.Poser("Label", (EstNumerique(nom) ? "_" : "") + std::string(nom));
    enregistrements.Poser("Standard", demande.infos.standard);
    enregistrements.Poser("typed", demande.infos.type);
    enregistrements.Poser("NSerie", demande.infos.serie);
    enregistrements.Poser("Total", demande.infos.total);
    enregistrements.Poser("Libre", demande.infos.libre);
    enregistrements.Poser("Occupe", demande.infos.occupe);
    std::string icone;
    LireFichier(CheminIconeTemporaire(), icone);
    if (!icone.empty())
        enregistrements.PoserOctets("Icone", icone);
    enregistrements.Poser("Unite", demande.lecteur);
    if (!enregistrements.Update())
        return 0;
    enregistrements.Bookmark(enregistrements.LastModified());
    return numero;
}

// Deletes the old media and writes the new row, both or neither. Returns the new number, 0 on failure.
int64_t Remplacer(Base& base, Recordset& ancien, const DemandeMedia& demande)
{
    const std::string numero = Str(ancien.Numero());
    Transaction transaction(base);
    if (!transaction.Ouverte())
        return 0;
    const bool efface = EffacerMedia(base, numero);
    const int64_t nouveau = efface ? EcrireCatalogue(ancien, demande) : 0;
    return nouveau != 0 && transaction.Valider() ? nouveau : 0;
}

}  // namespace

ReponseMedia VerifierCatalogue(const DemandeMedia& demande, Dialogues& dialogues)
{
    ReponseMedia reponse;
    const std::string identifiant(Trim(demande.identifiant));
    const std::string nom(Trim(demande.nom));
    if (identifiant.empty()) {
        dialogues.Informer("Veuillez renseigner l'identifiant du média !");
        reponse.fautif = ChampFautif::Identifiant;
        return reponse;
    }
    if (nom.empty()) {
        dialogues.Informer("Veuillez renseigner le nom du média !");
        reponse.fautif = ChampFautif::Nom;
        return reponse;
    }

    GarantirBase(true);
    reponse.base = BaseCourante();
    Base base = OpenDatabase(reponse.base);
    reponse.baseFermee = !base.Ouverte();
    std::string question = "Le média avec l'identifiant : \"" + identifiant + "\" existe, voulez vous le remplacer ?";
    Recordset trouve = MediaParIdentifiant(base, DoublerApostrophes(identifiant));
    if (trouve.Eof()) {
        question = "Le média : \"" + nom + "\" existe, voulez vous le remplacer ?";
        trouve = MediaParLabel(base, DoublerApostrophes(nom));
    }
    if (trouve.Eof())
        reponse.numero = EcrireCatalogue(trouve, demande);
    else if (dialogues.DemanderAvantPerte(question))
        reponse.numero = Remplacer(base, trouve, demande);
    reponse.accepte = reponse.numero != 0;
    return reponse;
}

void ModifierCatalogueDisque(const std::string& identifiant, const std::string& lettre)
{
    Base base = OuvrirBase();
    Recordset media = MediaParIdentifiant(base, identifiant);
    if (media.Eof())
        return;
    media.Edit();
    media.Poser("Disque", lettre);
    media.Update();
    media.Bookmark(media.LastModified());
}
