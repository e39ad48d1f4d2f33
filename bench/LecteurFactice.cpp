#include "LecteurFactice.h"

#include <algorithm>

#include <fmt/format.h>

#include "audiocd/IdentiteDisque.h"
#include "commun/Formes.h"

namespace {

std::string EnTexte(const Msf& place)
{
    return fmt::format("{:02}:{:02}:{:02}", place.minute, place.seconde, place.trame);
}

class LecteurFactice : public LecteurCD {
public:
    explicit LecteurFactice(AppareilFactice& appareil) : appareil_(appareil) {}

    bool EnvoyerCommande(const Cdb& cdb, std::span<uint8_t> reponse) override
    {
        std::string ligne = "SG_IO";
        for (const uint8_t octet : cdb)
            ligne += fmt::format(" {:02x}", octet);
        if (!Recevoir(ligne) || !appareil_.commandes || cdb[0] != 0x43 || cdb[1] != 0x02)
            return false;
        const DisqueFactice& disque = appareil_.disque;
        if (cdb[2] == 0)
            return Copier(disque.toc, cdb, reponse);
        return cdb[2] == 5 && disque.cdTexte && Copier(*disque.cdTexte, cdb, reponse);
    }

    bool LireBornes(int& premiere, int& derniere) override
    {
        if (!Recevoir("CDROMREADTOCHDR") || !appareil_.systeme)
            return false;
        premiere = appareil_.disque.toc[2];
        derniere = appareil_.disque.toc[3];
        return true;
    }

    bool LireDebut(int piste, Msf& debut) override
    {
        if (!Recevoir(fmt::format("CDROMREADTOCENTRY {}", piste)) || !appareil_.systeme)
            return false;
        for (int rang = 0; rang <= Pistes(); ++rang)
            if (Numero(rang) == piste) {
                debut = Place(rang);
                return true;
            }
        return false;
    }

    EtatLecteur LireEtat() override
    {
        return appareil_.tiroirOuvert ? EtatLecteur::TiroirOuvert
               : appareil_.present    ? EtatLecteur::Pret
                                      : EtatLecteur::SansDisque;
    }

    bool LirePlace(PlaceLecture& place) override
    {
        place = appareil_.place;
        return Pret();
    }

    bool Jouer(const Msf& debut, const Msf& fin) override
    {
        if (!Recevoir("CDROMPLAYMSF " + EnTexte(debut) + ' ' + EnTexte(fin)))
            return false;
        appareil_.place = {EtatLecture::EnCours, 0, debut, {}};
        for (int rang = 0; rang < Pistes() && Trames(Place(rang)) <= Trames(debut); ++rang) {
            appareil_.place.piste = Numero(rang);
            appareil_.place.dansPiste = EnMsf(Trames(debut) - Trames(Place(rang)));
        }
        return true;
    }

    bool Suspendre() override { return Passer("CDROMPAUSE", EtatLecture::Pause); }
    bool Reprendre() override { return Passer("CDROMRESUME", EtatLecture::EnCours); }
    bool Arreter() override { return Passer("CDROMSTOP", EtatLecture::Arret); }

    bool OuvrirTiroir() override
    {
        appareil_.journal.emplace_back("CDROMEJECT");
        appareil_.tiroirOuvert = true;
        return true;
    }

    bool FermerTiroir() override
    {
        appareil_.journal.emplace_back("CDROMCLOSETRAY");
        appareil_.tiroirOuvert = false;
        return true;
    }

private:
    // Descriptors of the disc: its tracks, then the lead-out.
    const uint8_t* Descripteur(int rang) const { return &appareil_.disque.toc[DisqueFactice::Descripteur(rang)]; }
    int Numero(int rang) const { return Descripteur(rang)[2]; }
    Msf Place(int rang) const { return {Descripteur(rang)[5], Descripteur(rang)[6], Descripteur(rang)[7]}; }
    int Pistes() const { return std::clamp(appareil_.disque.toc[3] - appareil_.disque.toc[2] + 1, 0, 99); }

    bool Pret() const { return appareil_.present && !appareil_.tiroirOuvert; }

    bool Recevoir(const std::string& ligne)
    {
        appareil_.journal.push_back(ligne);
        return Pret();
    }

    bool Passer(const char* ligne, EtatLecture etat)
    {
        if (!Recevoir(ligne))
            return false;
        appareil_.place.etat = etat;
        return true;
    }

    // As many bytes as the command allows, the buffer holds and the answer's own header says that there are.
    template <size_t Taille>
    static bool Copier(const std::array<uint8_t, Taille>& octets, const Cdb& cdb, std::span<uint8_t> reponse)
    {
        const size_t permis = size_t{cdb[7]} << 8 | cdb[8];
        const size_t presents = (size_t{octets[0]} << 8 | octets[1]) + 2;
        std::copy_n(octets.begin(), std::min({Taille, permis, presents, reponse.size()}), reponse.begin());
        return true;
    }

    AppareilFactice& appareil_;
};

}  // namespace

DisqueFactice::DisqueFactice(std::string_view texteToc, int premiere, uint8_t adrControle)
{
    std::vector<int64_t> trames;
    for (std::string_view reste = Trim(texteToc); !reste.empty();)
        trames.push_back(Valeur(Detacher(reste, ' ')));
    const int pistes = static_cast<int>(trames.size()) - 1;
    if (pistes < 0)
        return;
    const int taille = 2 + 8 * (pistes + 1);
    toc[0] = static_cast<uint8_t>(taille >> 8);
    toc[1] = static_cast<uint8_t>(taille);
    toc[2] = static_cast<uint8_t>(premiere);
    toc[3] = static_cast<uint8_t>(premiere + pistes - 1);
    for (int rang = 0; rang <= std::min(pistes, 99); ++rang) {
        const Msf place = EnMsf(static_cast<int>(trames[static_cast<size_t>(rang)]));
        uint8_t* descripteur = &toc[Descripteur(rang)];
        descripteur[1] = adrControle;
        descripteur[2] = static_cast<uint8_t>(rang < pistes ? premiere + rang : LecteurCD::PisteFinale);
        descripteur[5] = static_cast<uint8_t>(place.minute);
        descripteur[6] = static_cast<uint8_t>(place.seconde);
        descripteur[7] = static_cast<uint8_t>(place.trame);
    }
}

ReponseCdText ReponsePaquets(const std::vector<PaquetFactice>& paquets)
{
    constexpr size_t taille = 18;
    ReponseCdText reponse{};
    const size_t longueur = 2 + taille * paquets.size();
    reponse[0] = static_cast<uint8_t>(longueur >> 8);
    reponse[1] = static_cast<uint8_t>(longueur);
    for (size_t rang = 0; rang < paquets.size() && rang < 256; ++rang) {
        const PaquetFactice& paquet = paquets[rang];
        uint8_t* octets = &reponse[4 + rang * taille];
        octets[0] = paquet.type;
        octets[1] = paquet.piste;
        octets[2] = static_cast<uint8_t>(paquet.sequence < 0 ? rang : static_cast<size_t>(paquet.sequence));
        std::copy_n(paquet.texte.begin(), std::min<size_t>(paquet.texte.size(), 12), octets + 4);
    }
    return reponse;
}

AppareilFactice& MachineFactice::Ajouter()
{
    return *appareils_.emplace_back(std::make_unique<AppareilFactice>());
}

std::unique_ptr<LecteurCD> MachineFactice::Ouvrir(std::string_view lecteur)
{
    const char lettre = lecteur.empty() ? '\0' : LettreBasse(lecteur[0]);
    for (const auto& appareil : appareils_)
        if (lettre != 0 && (appareil->lettre == lettre || appareil->lettre == AppareilFactice::ToutesLettres))
            return std::make_unique<LecteurFactice>(*appareil);
    return nullptr;
}

int MachineFactice::Adaptateurs()
{
    int nombre = 0;
    for (const auto& appareil : appareils_)
        nombre = std::max(nombre, appareil->adaptateur + 1);
    return nombre;
}

AppareilFactice* MachineFactice::Chercher(int adaptateur, int cible, int unite)
{
    for (const auto& appareil : appareils_)
        if (appareil->adaptateur == adaptateur && appareil->cible == cible && appareil->unite == unite)
            return appareil.get();
    return nullptr;
}

int MachineFactice::TypeAppareil(int adaptateur, int cible, int unite)
{
    const AppareilFactice* appareil = Chercher(adaptateur, cible, unite);
    return appareil ? appareil->type : -1;
}

std::unique_ptr<LecteurCD> MachineFactice::OuvrirAppareil(int adaptateur, int cible, int unite)
{
    AppareilFactice* appareil = Chercher(adaptateur, cible, unite);
    return appareil ? std::make_unique<LecteurFactice>(*appareil) : nullptr;
}
