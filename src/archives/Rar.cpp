#include "archives/Rar.h"

#include <algorithm>

#include "archives/EntetesRar4.h"
#include "archives/EntetesRar5.h"
#include "commun/Texte.h"

namespace {

constexpr uint64_t PlusGrandExtracteur = 1024 * 1024;  // program before a self-extracting archive

// The first 259 characters of a name (particularité 24), its folders separated by "\".
std::string ChampFileName(std::string nom)
{
    constexpr size_t longueur = 259;

    nom.resize(std::min(nom.find('\0'), nom.size()));
    std::replace(nom.begin(), nom.end(), '/', '\\');
    size_t position = 0;
    for (size_t caracteres = 0; caracteres < longueur && position < nom.size(); ++caracteres)
        CaractereSuivant(nom, position);
    nom.resize(position);
    return nom;
}

uint64_t Joindre(uint32_t haut, uint32_t bas)
{
    return uint64_t{haut} << 32 | bas;
}

EnteteRar Retenir(const BlocRar4& bloc, const MembreRar4& membre)
{
    const uint64_t taille = Joindre(membre.tailleReelleHaute, membre.tailleReelle);
    return {
        .FileName = ChampFileName(NomRar4(membre.nom, bloc.drapeaux & MembreRar4::Unicode)),
        .UnpSize = taille == UINT64_MAX ? std::nullopt : std::optional(taille),
    };
}

EnteteRar Retenir(const MembreRar5& membre)
{
    const bool inconnue = membre.drapeaux & MembreRar5::TailleInconnue;
    return {
        .FileName = ChampFileName(NomEnTexte(membre.nom.substr(0, membre.nom.find('\0')))),
        .UnpSize = inconnue ? std::nullopt : std::optional(membre.tailleReelle),
    };
}

}  // namespace

bool ArchiveRar::RAROpenArchive()
{
    const std::string_view debutRar5 = SignatureRar5.substr(0, SignatureRar4.size());
    const uint64_t place =
        ChercherUnDe(fichier_, {SignatureRar4, debutRar5}, 0, PlusGrandExtracteur + SignatureRar4.size());
    if (place == Introuvable)
        return false;
    lecteur_.Aller(place);
    rar5_ = lecteur_.Octets(SignatureRar4.size()) == debutRar5;
    return !rar5_ || lecteur_.Octets(1) == SignatureRar5.substr(debutRar5.size());
}

bool ArchiveRar::RARReadHeader(EnteteRar& entete)
{
    return rar5_ ? LireMembre5(entete) : LireMembre4(entete);
}

void ArchiveRar::RARProcessFile()
{
    lecteur_.Sauter(suiteAilleurs_ ? UINT64_MAX : tailleDonnees_);
}

bool ArchiveRar::LireMembre4(EnteteRar& entete)
{
    BlocRar4 bloc;
    while (bloc.Lire(lecteur_) && bloc.type != BlocRar4::Fin) {
        tailleDonnees_ = bloc.tailleDonnees;
        if (bloc.type == BlocRar4::Principal) {
            PrincipalRar4 principal;
            if (!principal.Lire(bloc) || bloc.drapeaux & PrincipalRar4::Chiffre)
                return false;
            volume_ = bloc.drapeaux & PrincipalRar4::Volume;
        } else if (bloc.type == BlocRar4::Membre || bloc.type == BlocRar4::Service) {
            MembreRar4 membre;
            if (!membre.Lire(bloc))
                return false;
            tailleDonnees_ = Joindre(membre.taillePaquetHaute, membre.taillePaquet);
            suiteAilleurs_ = volume_ && bloc.drapeaux & MembreRar4::SuiteAilleurs;
            if (bloc.type == BlocRar4::Membre) {
                entete = Retenir(bloc, membre);
                return true;
            }
        } else if (!bloc.SommeJuste(bloc.taille)) {
            return false;
        }
        lecteur_.Sauter(tailleDonnees_);
    }
    return false;
}

bool ArchiveRar::LireMembre5(EnteteRar& entete)
{
    BlocRar5 bloc;
    while (bloc.Lire(lecteur_) && bloc.type != BlocRar5::Chiffrement && bloc.type != BlocRar5::Fin) {
        tailleDonnees_ = bloc.tailleDonnees;
        suiteAilleurs_ = volume_ && bloc.drapeaux & BlocRar5::SuiteAilleurs;
        if (PrincipalRar5 principal; bloc.type == BlocRar5::Principal && principal.Lire(bloc))
            volume_ = principal.drapeaux & PrincipalRar5::Volume;
        if (MembreRar5 membre; bloc.type == BlocRar5::Membre && membre.Lire(bloc)) {
            entete = Retenir(membre);
            return true;
        }
        lecteur_.Sauter(tailleDonnees_);
    }
    return false;
}
