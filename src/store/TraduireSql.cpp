#include "store/TraduireSql.h"

namespace {

struct Jeton {
    enum Genre { Fin, Mot, Chaine, Nombre, Autre } genre = Fin;
    std::string_view texte;
};

bool Ascii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}
char Plate(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}
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

std::string TraduireSql(std::string_view texte)
{
    return Traducteur(texte).Traduire();
}
