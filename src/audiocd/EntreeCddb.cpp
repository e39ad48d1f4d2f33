#include "audiocd/EntreeCddb.h"

#include <algorithm>
#include <cctype>

#include "audiocd/IdentiteDisque.h"
#include "commun/Formes.h"
#include "commun/Texte.h"

namespace {

constexpr std::string_view FinLigne = "\r\n";
constexpr std::string_view SeparateurTitre = " / ";

// Anywhere in the line, whatever the case of its letters.
bool Contient(std::string_view ligne, std::string_view marque)
{
    const auto egaux = [](char a, char b) {
        return std::toupper(static_cast<unsigned char>(a)) == std::toupper(static_cast<unsigned char>(b));
    };
    return std::search(ligne.begin(), ligne.end(), marque.begin(), marque.end(), egaux) != ligne.end();
}

// Positions count from 1.
std::string_view DepuisPosition(std::string_view ligne, size_t position)
{
    return ligne.substr(std::min(position - 1, ligne.size()));
}

// Appends a value in which "\n", two characters, is a line end; the two may also meet at the seam.
void AjouterNotes(std::string& notes, std::string_view valeur)
{
    for (const char c : valeur) {
        if (c == 'n' && notes.ends_with('\\'))
            notes.replace(notes.size() - 1, 1, FinLigne);
        else
            notes += c;
    }
}

// Names or notes of the tracks, by the keys of their lines: a key seen again at once goes on with the text before.
class SuitePistes {
public:
    explicit SuitePistes(std::vector<std::string>& textes) : textes_(textes) {}

    void Ajouter(std::string_view ligne, bool notes)
    {
        const size_t egal = ligne.find('=');
        if (egal == ligne.npos)
            return;
        if (textes_.empty() || ligne.substr(0, egal) != cle_)
            textes_.emplace_back();
        cle_ = ligne.substr(0, egal);
        std::string texte;
        if (notes)
            AjouterNotes(texte, ligne.substr(egal + 1));
        else
            texte = ligne.substr(egal + 1);
        textes_.back() += AnsiEnTexte(texte);
    }

private:
    std::vector<std::string>& textes_;
    std::string_view cle_;
};

// "Artiste / Album"; without the separator one name for both, and what follows a second one is nobody's.
void SeparerTitre(std::string_view titre, EntreeCddb& entree)
{
    const size_t fin = titre.find(SeparateurTitre);
    entree.artiste = AnsiEnTexte(titre.substr(0, fin));
    if (fin == titre.npos) {
        entree.album = entree.artiste;
        return;
    }
    const std::string_view reste = titre.substr(fin + SeparateurTitre.size());
    entree.album = AnsiEnTexte(reste.substr(0, reste.find(SeparateurTitre)));
}

}  // namespace

std::vector<std::string_view> LignesReponse(std::string_view reponse)
{
    std::vector<std::string_view> lignes;
    while (!reponse.empty()) {
        const size_t fin = reponse.find(FinLigne);
        const std::string_view ligne = reponse.substr(0, fin);
        if (!lignes.empty() && ligne == ".")
            break;
        lignes.push_back(ligne);
        reponse.remove_prefix(fin == reponse.npos ? reponse.size() : fin + FinLigne.size());
    }
    return lignes;
}

int CodeReponse(std::string_view reponse)
{
    return static_cast<int>(Valeur(reponse.substr(0, 3)));
}

DisqueTrouve LireDisqueTrouve(std::string_view ligne)
{
    DisqueTrouve disque;
    disque.categorie = AnsiEnTexte(Detacher(ligne, ' '));
    disque.identite = AnsiEnTexte(Detacher(ligne, ' '));
    disque.titre = AnsiEnTexte(ligne);
    return disque;
}

bool MotSur(std::string_view mot)
{
    return !mot.empty() && std::all_of(mot.begin(), mot.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-';
    });
}

// Each marker is looked for in each line, wherever it stands in it: kept, particularité 42.
void LireEntreeCddb(const std::vector<std::string_view>& lignes, EntreeCddb& entree)
{
    std::string titre, notes;
    bool titree = false;
    SuitePistes noms(entree.noms);
    SuitePistes notesPistes(entree.notesPistes);
    for (size_t rang = 1; rang < lignes.size(); ++rang) {
        const std::string_view ligne = lignes[rang];
        if (Contient(ligne, "# Revision:")) {
            const int64_t revision = Valeur(DepuisPosition(ligne, 13));
            entree.revision = revision <= INT16_MAX && revision >= INT16_MIN ? static_cast<int16_t>(revision) : 0;
        }
        if (Contient(ligne, "DYEAR="))
            entree.annee = AnsiEnTexte(DepuisPosition(ligne, 7));
        if (Contient(ligne, "DGENRE="))
            if (const std::string_view genre = DepuisPosition(ligne, 8); !genre.empty())
                entree.genre = AnsiEnTexte(genre);
        if (Contient(ligne, "DTITLE=")) {
            titre += DepuisPosition(ligne, 8);
            titree = true;
        }
        if (Contient(ligne, "TTITLE"))
            noms.Ajouter(ligne, false);
        if (Contient(ligne, "EXTT"))
            notesPistes.Ajouter(ligne, true);
        if (Contient(ligne, "EXTD="))
            AjouterNotes(notes, DepuisPosition(ligne, 6));
    }
    if (titree)
        SeparerTitre(titre, entree);
    entree.notes += AnsiEnTexte(notes);
}
