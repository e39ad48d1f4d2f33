#include "audiocd/ReponsesToc.h"

#include <algorithm>

#include <fmt/format.h>

#include "commun/Formes.h"
#include "commun/Texte.h"

namespace {

constexpr size_t TailleEntete = 4;
constexpr int PistesMaximum = 99;

// Track descriptor of READ TOC format 0.
struct DescripteurPiste {
    static constexpr size_t Taille = 8;
    uint8_t adrControle = 0;
    Msf place;

    DescripteurPiste(std::span<const uint8_t, TailleReponseToc> reponse, int rang)
    {
        const auto octets = reponse.subspan(TailleEntete + static_cast<size_t>(rang) * Taille, Taille);
        adrControle = octets[1];
        place = {octets[5], octets[6], octets[7]};
    }
};

// Pack of READ TOC format 5 (CD-Text).
struct Paquet {
    static constexpr size_t Taille = 18;
    enum Type : uint8_t { Titre = 0x80, Interprete = 0x81, Message = 0x85 };
    uint8_t type, piste, sequence;
    std::span<const uint8_t> texte;

    explicit Paquet(std::span<const uint8_t> octets)
        : type(octets[0]), piste(octets[1]), sequence(octets[2]), texte(octets.subspan(4, 12))
    {
    }
};

// The strings of all packs so far.
class TextesDisque {
public:
    void Ajouter(const Paquet& paquet)
    {
        presents_ = true;
        int piste = paquet.piste;
        derniere_ = std::min(std::max(derniere_, piste), PistesMaximum);
        for (const uint8_t octet : paquet.texte) {
            if (octet != 0)
                cumul_ += static_cast<char>(octet);
            else
                Terminer(paquet.type, piste);
        }
    }

    std::string Composer() const
    {
        if (!presents_)
            return {};
        std::string texte = interprete_ + '|' + album_ + "|||" + message_ + '|';
        for (int piste = 1; piste <= derniere_; ++piste)
            texte += titres_[static_cast<size_t>(piste)] + '|';
        return AnsiEnTexte(texte);
    }

private:
    // A string has ended. Those of the types between performer and message stay in front of the next one: kept,
    // particularité 41.
    void Terminer(uint8_t type, int& piste)
    {
        if (type == Paquet::Titre) {
            if (piste == 0)
                album_ = cumul_;
            else if (piste <= PistesMaximum)
                titres_[static_cast<size_t>(piste)] = cumul_;
            ++piste;
        } else if (type == Paquet::Interprete) {
            if (piste != 0)
                ++piste;
            else if (interprete_.empty())
                interprete_ = cumul_;
        } else if (type == Paquet::Message) {
            message_ += cumul_;
        } else {
            return;
        }
        cumul_.clear();
    }

    bool presents_ = false;
    int derniere_ = 0;   // highest track that a pack's head names: kept, particularité 50
    std::string cumul_;  // survives from pack to pack
    std::string interprete_, album_, message_;
    std::array<std::string, PistesMaximum + 1> titres_;
};

}  // namespace

std::optional<std::string> BuildTocText(std::span<const uint8_t, TailleReponseToc> reponse)
{
    const int premiere = reponse[2];
    const int derniere = reponse[3];
    if (derniere < premiere)
        return std::nullopt;
    const int nombre = derniere - premiere + 1;
    if ((premiere == 0 && derniere == 0) || nombre > PistesMaximum)
        return "";

    bool bonne = false;
    std::string toc;
    for (int rang = 0; rang <= nombre; ++rang) {  // the last one is the lead-out
        const DescripteurPiste piste(reponse, rang);
        toc += (rang > 0 ? " " : "") + std::to_string(Trames(piste.place));
        bonne = bonne || (piste.adrControle & 0x10) != 0;
    }
    return bonne ? toc : "";
}

std::string BuildCdText(std::span<const uint8_t, TailleReponseCdText> reponse)
{
    TextesDisque textes;
    for (size_t rang = 0; rang < 256; ++rang) {
        const Paquet paquet(reponse.subspan(TailleEntete + rang * Paquet::Taille, Paquet::Taille));
        if (paquet.sequence != rang)
            break;
        if (paquet.type >= Paquet::Titre && paquet.type <= Paquet::Message)
            textes.Ajouter(paquet);
    }
    return textes.Composer();
}
