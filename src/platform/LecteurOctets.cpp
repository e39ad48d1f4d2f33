#include "platform/LecteurOctets.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr size_t PlusGrandBloc = 256 * 1024;

// Hands over the bytes from `debut` to `fin`, block after block, each beginning with the last `recouvrement` bytes of
// the one before it, until the function returns false. Blocks grow: what lies near the start costs one small read, the
// file's first block, which the file keeps.
template <typename Recevoir>
void ParcourirBlocs(const Fichier& fichier, uint64_t debut, uint64_t fin, size_t recouvrement, Recevoir recevoir)
{
    fin = std::min(fin, fichier.Taille());
    std::string bloc;
    size_t gardes = 0;
    size_t taille = Fichier::PremierBloc - static_cast<size_t>(debut % Fichier::PremierBloc);
    for (; debut + gardes < fin; taille = std::min(std::max(taille, Fichier::PremierBloc) * 4, PlusGrandBloc)) {
        const uint64_t suite = debut + gardes;
        bloc.resize(gardes + static_cast<size_t>(std::min<uint64_t>(taille, fin - suite)));
        const size_t lus = fichier.Lire(suite, bloc.data() + gardes, bloc.size() - gardes);
        const bool complet = gardes + lus == bloc.size();
        bloc.resize(gardes + lus);
        if (!recevoir(bloc, debut) || !complet)
            return;
        gardes = std::min(recouvrement, bloc.size());
        debut += bloc.size() - gardes;
        std::memmove(bloc.data(), bloc.data() + bloc.size() - gardes, gardes);
    }
}

uint64_t PlaceDans(std::string_view bloc, uint64_t debutBloc, std::string_view motif)
{
    const size_t place = bloc.find(motif);
    return place == std::string_view::npos ? Introuvable : debutBloc + place;
}

size_t Recouvrement(const std::vector<std::string_view>& motifs)
{
    size_t plusLong = 1;
    for (const std::string_view motif : motifs)
        plusLong = std::max(plusLong, motif.size());
    return plusLong - 1;
}

}  // namespace

void LecteurOctets::Sauter(uint64_t nombre)
{
    position_ = nombre > UINT64_MAX - position_ ? UINT64_MAX : position_ + nombre;
}

bool LecteurOctets::Lire(void* cible, size_t nombre)
{
    if (nombre > Reste() || Copier(static_cast<char*>(cible), nombre) < nombre)
        return false;
    position_ += nombre;
    return true;
}

std::string LecteurOctets::Octets(uint64_t nombre)
{
    std::string octets(static_cast<size_t>(std::min(nombre, Reste())), '\0');
    octets.resize(Copier(octets.data(), octets.size()));
    position_ += octets.size();
    return octets;
}

size_t LecteurOctets::Copier(char* cible, size_t nombre)
{
    if (nombre > bloc_.size())
        return fichier_.Lire(position_, cible, nombre);
    size_t copies = 0;
    while (copies < nombre) {
        const uint64_t position = position_ + copies;
        if (position < debutBloc_ || position - debutBloc_ >= tailleBloc_) {
            debutBloc_ = position - position % bloc_.size();
            tailleBloc_ = fichier_.Lire(debutBloc_, bloc_.data(), bloc_.size());
        }
        const auto decalage = static_cast<size_t>(position - debutBloc_);
        if (decalage >= tailleBloc_)
            break;
        const size_t pris = std::min(nombre - copies, tailleBloc_ - decalage);
        std::memcpy(cible + copies, bloc_.data() + decalage, pris);
        copies += pris;
    }
    return copies;
}

uint64_t Chercher(const Fichier& fichier, std::string_view motif, uint64_t debut, uint64_t fin, Casse casse)
{
    const auto enMinuscule = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; };
    std::string cherche(motif);
    if (casse == Casse::Ignoree)
        std::transform(cherche.begin(), cherche.end(), cherche.begin(), enMinuscule);
    uint64_t place = Introuvable;
    ParcourirBlocs(fichier, debut, fin, Recouvrement({motif}), [&](std::string& bloc, uint64_t debutBloc) {
        if (casse == Casse::Ignoree)
            std::transform(bloc.begin(), bloc.end(), bloc.begin(), enMinuscule);
        place = PlaceDans(bloc, debutBloc, cherche);
        return place == Introuvable;
    });
    return place;
}

uint64_t ChercherUnDe(const Fichier& fichier, const std::vector<std::string_view>& motifs, uint64_t debut, uint64_t fin)
{
    uint64_t place = Introuvable;
    ParcourirBlocs(fichier, debut, fin, Recouvrement(motifs), [&](const std::string& bloc, uint64_t debutBloc) {
        std::string_view avant = bloc;  // what a pattern must lie in to come before those found
        for (const std::string_view motif : motifs) {
            const uint64_t trouvee = PlaceDans(avant, debutBloc, motif);
            if (trouvee == Introuvable)
                continue;
            place = trouvee;
            avant = avant.substr(0, static_cast<size_t>(place - debutBloc) + motif.size() - 1);
        }
        return place == Introuvable;
    });
    return place;
}

std::vector<uint64_t> ChercherChacun(const Fichier& fichier, const std::vector<std::string_view>& motifs,
                                     uint64_t debut, uint64_t fin)
{
    std::vector<uint64_t> places(motifs.size(), Introuvable);
    ParcourirBlocs(fichier, debut, fin, Recouvrement(motifs), [&](const std::string& bloc, uint64_t debutBloc) {
        bool manque = false;
        for (size_t i = 0; i < motifs.size(); ++i) {
            if (places[i] == Introuvable)
                places[i] = PlaceDans(bloc, debutBloc, motifs[i]);
            manque = manque || places[i] == Introuvable;
        }
        return manque;
    });
    return places;
}
