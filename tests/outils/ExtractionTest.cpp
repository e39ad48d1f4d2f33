#include "outils/ExtractionTest.h"

#include "commun/Texte.h"
#include "platform/Lecteurs.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

EnvironnementExtraction::EnvironnementExtraction() : disque_(travail_ / "disque")
{
    std::filesystem::create_directories(disque_);
    lettre_ = LettreDuDossier(disque_.string());
    InitialiserBase();
}

void EnvironnementExtraction::Remplir(int fichiers) const
{
    for (int i = 0; i < fichiers; ++i)
        Ecrire(disque_ / std::to_string(i / 100) / ("un nom assez long " + std::to_string(i)), "");
}

ReponseMedia EnvironnementExtraction::Inscrire(const std::string& identifiant, const std::string& nom)
{
    DemandeMedia demande;
    demande.identifiant = identifiant;
    demande.nom = nom;
    demande.lecteur = Majuscules(std::string(1, lettre_));
    bsDrive lecteur;
    lecteur.GetInfo(demande.lecteur);
    demande.infos = AfficherInfo(lecteur);
    return VerifierCatalogue(demande, dialogues_);
}

FinExtraction EnvironnementExtraction::Lire(int64_t media)
{
    Extraction extraction(BaseCourante(), media, lettre_, 1000, false);
    const FinExtraction fin = extraction.Executer();
    compteurs_ = extraction.Lire().compteurs;
    return fin;
}

std::vector<std::string> EnvironnementExtraction::Lignes(const std::string& select,
                                                         const std::vector<std::string>& champs)
{
    std::vector<std::string> lignes;
    Base base = OpenDatabase(BaseCourante());
    for (Recordset lecture = base.OpenRecordset(select); !lecture.Eof(); lecture.MoveNext()) {
        std::string ligne;
        for (const std::string& champ : champs)
            ligne += (ligne.empty() ? "" : "|") + std::string(lecture.Texte(champ));
        lignes.push_back(ligne);
    }
    return lignes;
}

int64_t EnvironnementExtraction::Compter(const std::string& select)
{
    Base base = OpenDatabase(BaseCourante());
    return base.OpenRecordset(select).RecordCount();
}
