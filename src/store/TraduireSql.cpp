#include "store/TraduireSql.h"

#include <algorithm>
#include <array>

#include "platform/Texte.h"
#include "store/Motif.h"

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

struct Jeton {
    enum Genre { Fin, Mot, Chaine, Nombre, Autre } genre = Fin;
    std::string_view texte;
};

bool DansMot(char c)
{
    return !Ascii(c) || c == '_' || (Plate(c) >= 'a' && Plate(c) <= 'z') || (c >= '0' && c <= '9');
}
bool Blanc(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool Est(const Jeton& jeton, std::string_view mot)
{
    if (jeton.genre != Jeton::Mot || jeton.texte.size() != mot.size())
        return false;
    for (size_t i = 0; i < mot.size(); ++i) {
        const char c = jeton.texte[i];
        if ((Ascii(c) ? Plate(c) : c) != mot[i])
            return false;
    }
    return true;
}

// Numbers, codes and flags are ordered as they are.
bool EstTexteATrier(const Jeton& jeton)
{
    for (const std::string_view nom : {"num", "ncatalogue", "npret", "flag", "r\xC3\xA9pertoire", "repertoirepere"}) {
        if (Est(jeton, nom))
            return false;
    }
    return jeton.genre == Jeton::Mot;
}

class Traducteur {
public:
    explicit Traducteur(std::string_view texte) : reste_(texte) { sortie_.reserve(texte.size() + 64); }

    std::string Traduire()
    {
        for (Jeton jeton = Suivant(); jeton.genre != Jeton::Fin; jeton = Suivant()) {
            if (Est(jeton, "like") && avant_.genre == Jeton::Mot)
                TraduireLike(jeton);
            else if (jeton.texte == "*" && Est(avant_, "delete"))
                continue;
            else if (jeton.texte == "=" && Est(avant_, "repertoirepere"))
                TraduirePere(jeton);
            else if (dansOrdre_)
                TraduireTerme(jeton);
            else
                Recopier(jeton);
            if (Est(jeton, "by") && Est(avantDernier_, "order"))
                dansOrdre_ = true;
        }
        return std::move(sortie_);
    }

private:
    // Takes the next token; the blanks ahead of it go to the output.
    Jeton Suivant()
    {
        while (!reste_.empty() && Blanc(reste_.front())) {
            sortie_ += reste_.front();
            reste_.remove_prefix(1);
        }
        if (reste_.empty())
            return {};
        size_t fin = 1;
        auto genre = Jeton::Autre;
        const char c = reste_.front();
        if (c == '\'' || c == '"') {
            genre = Jeton::Chaine;
            fin = FinDeChaine(c);
        } else if (DansMot(c)) {
            genre = c >= '0' && c <= '9' ? Jeton::Nombre : Jeton::Mot;
            while (fin < reste_.size() && DansMot(reste_[fin]))
                ++fin;
        }
        const Jeton jeton{genre, reste_.substr(0, fin)};
        reste_.remove_prefix(fin);
        return jeton;
    }

    // Behind the closing mark; a doubled mark stays inside.
    size_t FinDeChaine(char marque) const
    {
        size_t fin = 1;
        while (fin < reste_.size()) {
            if (reste_[fin++] != marque)
                continue;
            if (fin == reste_.size() || reste_[fin] != marque)
                return fin;
            ++fin;
        }
        return fin;
    }

    void Recopier(const Jeton& jeton)
    {
        if (jeton.genre == Jeton::Mot)
            debutMot_ = sortie_.size();
        sortie_ += jeton.texte;
        avantDernier_ = avant_;
        avant_ = jeton;
    }

    // "X like 'motif'" to "comme('motif', X)"; anything else behind `like` stays.
    void TraduireLike(const Jeton& like)
    {
        const Jeton champ = avant_;
        const size_t debut = debutMot_;
        Recopier(like);
        const Jeton motif = Suivant();
        if (motif.genre != Jeton::Chaine || Est(champ, "not")) {
            Recopier(motif);
            return;
        }
        sortie_.resize(debut);
        sortie_.append("comme(").append(motif.texte).append(", ").append(champ.texte).append(")");
        avant_ = motif;
    }

    // Lets the engine see that the index of the directories' own rows serves.
    void TraduirePere(const Jeton& egal)
    {
        const size_t debut = debutMot_;
        const std::string champ(avant_.texte);
        Recopier(egal);
        const Jeton valeur = Suivant();
        Recopier(valeur);
        if (valeur.genre != Jeton::Chaine || valeur.texte == "'0'")
            return;
        sortie_.insert(debut, 1, '(');
        sortie_.append(" and ").append(champ).append(" <> '0')");
    }

    void TraduireTerme(const Jeton& jeton)
    {
        const bool debutTerme = Est(avant_, "by") || avant_.texte == ",";
        Recopier(jeton);
        if (debutTerme && EstTexteATrier(jeton))
            sortie_ += " collate francais";
    }

    std::string_view reste_;
    std::string sortie_;
    Jeton avant_;
    Jeton avantDernier_;
    size_t debutMot_ = 0;
    bool dansOrdre_ = false;
};

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

std::string TraduireSql(std::string_view texte)
{
    return Traducteur(texte).Traduire();
}

bool CorrespondMotif(std::string_view motif, std::string_view texte)
{
    return Motif(motif).Correspond(texte);
}
