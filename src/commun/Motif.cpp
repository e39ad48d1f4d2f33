#include "commun/Motif.h"

#include <algorithm>
#include <array>

#include "commun/Texte.h"

namespace {

constexpr char32_t Etoile = 0x110000;
constexpr char32_t Interrogation = 0x110001;

constexpr std::array<char, 128> TablePlate = [] {
    std::array<char, 128> table{};
    for (size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<char>(i >= 'A' && i <= 'Z' ? i | 0x20 : i);
    return table;
}();

bool Ascii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}
char Plate(char c)
{
    return TablePlate[static_cast<unsigned char>(c)];
}

// The text in its one case, one value per character.
void Deplier(std::string_view texte, std::u32string& caracteres)
{
    caracteres.clear();
    for (size_t i = 0; i < texte.size();) {
        if (Ascii(texte[i]))
            caracteres += static_cast<char32_t>(Plate(texte[i++]));
        else if (const char32_t c = SansCasse(CaractereSuivant(texte, i)); c < 0x80)
            caracteres += static_cast<char32_t>(Plate(static_cast<char>(c)));
        else
            caracteres += c;
    }
}

}  // namespace

void Plier(std::string_view texte, std::string& plie)
{
    plie.clear();
    for (size_t i = 0; i < texte.size();) {
        if (Ascii(texte[i]))
            plie += Plate(texte[i++]);
        else if (const char32_t c = SansCasse(CaractereSuivant(texte, i)); c < 0x80)
            plie += Plate(static_cast<char>(c));
        else
            AjouterCaractere(plie, c);
    }
}

std::string PartieFixe(std::string_view motif)
{
    std::string plusLongue, partie;
    while (!motif.empty()) {
        const size_t fin = std::min(motif.find_first_of("*?"), motif.size());
        Plier(motif.substr(0, fin), partie);
        if (partie.size() > plusLongue.size())
            plusLongue.swap(partie);
        motif.remove_prefix(std::min(fin + 1, motif.size()));
    }
    return plusLongue;
}

Motif::Motif(std::string_view motif)
{
    Deplier(motif, caracteres_);
    for (char32_t& c : caracteres_)
        c = c == U'*' ? Etoile : c == U'?' ? Interrogation : c;
    if (caracteres_.size() < 3 || caracteres_.front() != Etoile || caracteres_.back() != Etoile)
        return;
    simple_ = true;
    for (size_t i = 1; simple_ && i + 1 < caracteres_.size(); ++i)
        simple_ = caracteres_[i] < 0x80;
    if (!simple_)
        return;
    for (size_t i = 1; i + 1 < caracteres_.size(); ++i)
        morceau_ += static_cast<char>(caracteres_[i]);
}

bool Motif::ContientMorceau(std::string_view texte) const
{
    if (texte.size() < morceau_.size())
        return false;
    const char premier = morceau_.front();
    const char* fin = texte.data() + (texte.size() - morceau_.size());
    for (const char* debut = texte.data(); debut <= fin; ++debut) {
        if (!Ascii(*debut) || Plate(*debut) != premier)
            continue;
        size_t i = 1;
        while (i < morceau_.size() && Ascii(debut[i]) && Plate(debut[i]) == morceau_[i])
            ++i;
        if (i == morceau_.size())
            return true;
    }
    return false;
}

bool Motif::Correspond(std::string_view texte) const
{
    if (simple_ && ContientMorceau(texte))
        return true;
    if (simple_ && std::all_of(texte.begin(), texte.end(), Ascii))
        return false;
    thread_local std::u32string deplie;
    Deplier(texte, deplie);

    // Greedy, coming back to the last "*" only: never worse than the product of the lengths.
    size_t m = 0, t = 0, retourMotif = std::u32string::npos, retourTexte = 0;
    while (t < deplie.size()) {
        if (m < caracteres_.size() && (caracteres_[m] == Interrogation || caracteres_[m] == deplie[t])) {
            ++m;
            ++t;
        } else if (m < caracteres_.size() && caracteres_[m] == Etoile) {
            retourMotif = ++m;
            retourTexte = t;
        } else if (retourMotif != std::u32string::npos) {
            m = retourMotif;
            t = ++retourTexte;
        } else {
            return false;
        }
    }
    while (m < caracteres_.size() && caracteres_[m] == Etoile)
        ++m;
    return m == caracteres_.size();
}

bool CorrespondMotif(std::string_view motif, std::string_view texte)
{
    return Motif(motif).Correspond(texte);
}
