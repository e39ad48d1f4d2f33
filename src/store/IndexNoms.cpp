#include "store/IndexNoms.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>

#include <fmt/format.h>

#include "commun/Motif.h"
#include "commun/NombresCompacts.h"
#include "platform/Chemins.h"
#include "platform/Fichier.h"
#include "platform/OperationsFichiers.h"
#include "store/Base.h"

namespace {

// A base changes its file's counter at the first write of each opening.
struct EtatBase {
    std::array<char, 8> magie = {'v', 'l', 'n', 'o', 'm', 's', '2', '\n'};
    EtatFichier fichier;
    std::array<uint8_t, 4> compteur{};
    uint32_t tailleChemin = 0;  // of the path of the base, which follows
    bool operator==(const EtatBase&) const = default;
};

// First of a block: behind it the steps from each row's number to the next, then a line per row: the folded name, a tab
// and alias.
struct EnTeteBloc {
    int64_t premier = 0;  // number from which the first step counts
    uint32_t tailleNumeros = 0;
    uint32_t tailleTextes = 0;
};

constexpr size_t TailleBloc = 256 * 1024;
constexpr const char* SuiteIndex = ".noms";
constexpr size_t LongueurMarque = 6;  // of the mark, its version left out

bool LireEtatBase(const std::string& chemin, Base& base, EtatBase& etat)
{
    etat.tailleChemin = static_cast<uint32_t>(chemin.size());
    return base.Ouverte() && LireEtatFichier(chemin, etat.fichier) && base.LireCompteur(etat.compteur);
}

// One file per base, named after its path.
std::string CheminIndex(const std::string& base)
{
    uint64_t empreinte = 14695981039346656037U;  // FNV-1a
    for (const char c : base)
        empreinte = (empreinte ^ static_cast<unsigned char>(c)) * 1099511628211U;
    return fmt::format("{}/{:016x}{}", DossierCache(), empreinte, SuiteIndex);
}

template <typename Enregistrement>
std::string_view Octets(const Enregistrement& enregistrement)
{
    return {reinterpret_cast<const char*>(&enregistrement), sizeof enregistrement};
}

// Gathers rows into blocks.
class Ecriture {
public:
    explicit Ecriture(const Versement& verser) : verser_(verser) {}

    bool Ajouter(int64_t numero, std::string_view nom, std::string_view alias)
    {
        if (textes_.empty())
            bloc_.premier = dernier_;
        AjouterNombre(numeros_, static_cast<uint64_t>(numero - dernier_));
        dernier_ = numero;
        AjouterTexte(nom);
        if (!alias.empty()) {
            textes_ += '\t';
            AjouterTexte(alias);
        }
        textes_ += '\n';
        return textes_.size() < TailleBloc || Verser();
    }

    // The last rows and, as the mark of the end, a block without any.
    bool Finir() { return (textes_.empty() || Verser()) && Verser(); }

private:
    bool Verser()
    {
        bloc_.tailleNumeros = static_cast<uint32_t>(numeros_.size());
        bloc_.tailleTextes = static_cast<uint32_t>(textes_.size());
        const bool ecrit = verser_(Octets(bloc_)) && verser_(numeros_) && verser_(textes_);
        numeros_.clear();
        textes_.clear();
        return ecrit;
    }

    // A line end inside a name would end its line.
    void AjouterTexte(std::string_view texte)
    {
        Plier(texte, plie_);
        std::replace(plie_.begin(), plie_.end(), '\n', ' ');
        textes_ += plie_;
    }

    const Versement& verser_;
    EnTeteBloc bloc_;
    int64_t dernier_ = 0;
    std::string numeros_, textes_, plie_;
};

// The rows of one block whose line holds the part.
void ChercherDansBloc(const EnTeteBloc& bloc, std::string_view numeros, std::string_view textes,
                      std::string_view partie, std::vector<int64_t>& trouves)
{
    auto numero = static_cast<uint64_t>(bloc.premier);
    size_t lues = 0;  // lines whose numbers were taken
    const auto avancerA = [&](size_t ligne) {
        for (; lues <= ligne; ++lues) {
            numero += LireNombre([&numeros]() -> uint8_t {
                if (numeros.empty())
                    return 0;
                const auto octet = static_cast<uint8_t>(numeros.front());
                numeros.remove_prefix(1);
                return octet;
            });
        }
    };

    size_t ligne = 0, position = 0;
    while (const void* place =
               memmem(textes.data() + position, textes.size() - position, partie.data(), partie.size())) {
        const auto trouve = static_cast<size_t>(static_cast<const char*>(place) - textes.data());
        ligne += static_cast<size_t>(std::count(textes.begin() + static_cast<std::ptrdiff_t>(position),
                                                textes.begin() + static_cast<std::ptrdiff_t>(trouve), '\n'));
        avancerA(ligne);
        trouves.push_back(static_cast<int64_t>(numero));
        const size_t fin = textes.find('\n', trouve);
        if (fin == textes.npos)
            return;
        position = fin + 1;
        ++ligne;
    }
}

bool IndexDe(const Fichier& index, const EtatBase& etat)
{
    EtatBase lu;
    return index.Lire(0, &lu, sizeof lu) == sizeof lu && lu == etat;
}

}  // namespace

void NettoyerIndexNoms()
{
    std::error_code erreur;
    std::vector<std::string> perdus;
    const std::filesystem::directory_iterator fin;
    for (std::filesystem::directory_iterator entree(DossierCache(), erreur); !erreur && entree != fin;
         entree.increment(erreur)) {
        const std::string chemin = entree->path().string();
        if (!chemin.ends_with(SuiteIndex))
            continue;
        const Fichier index(chemin);
        const EtatBase attendu;
        EtatBase etat;
        if (index.Lire(0, &etat, sizeof etat) != sizeof etat ||
            !std::equal(etat.magie.begin(), etat.magie.begin() + LongueurMarque, attendu.magie.begin()))
            continue;
        std::string base(std::min<uint64_t>(etat.tailleChemin, index.Taille()), '\0');
        const bool connue =
            etat.magie == attendu.magie && index.Lire(sizeof etat, base.data(), base.size()) == base.size();
        if (!connue || !FichierExiste(base) || CheminIndex(base) != chemin)
            perdus.push_back(chemin);
    }
    for (const std::string& chemin : perdus)
        SupprimerFichier(chemin);
}

bool PreparerIndexNoms(const std::string& base, const std::stop_token& arret)
{
    Base ouverte = OpenDatabase(base, arret);
    EtatBase etat;
    if (!LireEtatBase(base, ouverte, etat))
        return false;
    const std::string chemin = CheminIndex(base);
    if (IndexDe(Fichier(chemin), etat))
        return true;
    return EcrireFichier(
        chemin,
        [&](const Versement& verser) {
            Ecriture ecriture(verser);
            return verser(Octets(etat)) && verser(base) &&
                   ouverte.ParcourirNoms([&](int64_t numero, std::string_view nom, std::string_view alias) {
                       return ecriture.Ajouter(numero, nom, alias);
                   }) &&
                   ecriture.Finir();
        },
        true);
}

std::optional<std::vector<int64_t>> CandidatsNoms(const std::string& base, std::string_view motif)
{
    const std::string partie = PartieFixe(motif);
    if (partie.empty() || partie.find('\n') != partie.npos)
        return std::nullopt;
    Base ouverte = OpenDatabase(base);
    EtatBase etat;
    if (!LireEtatBase(base, ouverte, etat))
        return std::nullopt;
    const Fichier index(CheminIndex(base));
    if (!IndexDe(index, etat))
        return std::nullopt;

    std::vector<int64_t> trouves;
    std::string octets;
    EnTeteBloc bloc;
    for (uint64_t position = sizeof etat + etat.tailleChemin; position < index.Taille(); position += octets.size()) {
        if (index.Lire(position, &bloc, sizeof bloc) != sizeof bloc)
            return std::nullopt;
        position += sizeof bloc;
        const uint64_t taille = uint64_t{bloc.tailleNumeros} + bloc.tailleTextes;
        if (taille == 0)
            return trouves;
        if (taille > index.Taille() - position)
            break;
        octets.resize(static_cast<size_t>(taille));
        if (index.Lire(position, octets.data(), octets.size()) != octets.size())
            return std::nullopt;
        const std::string_view tout(octets);
        ChercherDansBloc(bloc, tout.substr(0, bloc.tailleNumeros), tout.substr(bloc.tailleNumeros), partie, trouves);
    }
    return std::nullopt;  // cut short
}
