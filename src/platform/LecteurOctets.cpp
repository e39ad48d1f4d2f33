#include "platform/LecteurOctets.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr size_t PremierBloc = 4096, PlusGrandBloc = 256 * 1024;

// Hands over the bytes from `debut` to `fin`, block after block, each beginning with the last `recouvrement` bytes of
// the one before it, until the function returns false. Blocks grow: what lies near the start costs one small read.
template <typename Recevoir>
void ParcourirBlocs(const Fichier& fichier, uint64_t debut, uint64_t fin, size_t recouvrement, Recevoir recevoir)
{
    fin = std::min(fin, fichier.Taille());
    std::string bloc;
    size_t gardes = 0;
    for (size_t taille = PremierBloc; debut + gardes < fin; taille = std::min(taille * 4, PlusGrandBloc)) {
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
    const void* trouve = memmem(bloc.data(), bloc.size(), motif.data(), motif.size());
    return trouve ? debutBloc + static_cast<uint64_t>(static_cast<const char*>(trouve) - bloc.data()) : Introuvable;
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
    if (nombre > Reste())
        return false;
    char* suite = static_cast<char*>(cible);
    uint64_t position = position_;
    for (size_t reste = nombre; reste > 0;) {
        if (position < debutBloc_ || position - debutBloc_ >= tailleBloc_) {
            debutBloc_ = position;
            tailleBloc_ = fichier_.Lire(position, bloc_.data(), bloc_.size());
            if (tailleBloc_ == 0)
                return false;
        }
        const auto decalage = static_cast<size_t>(position - debutBloc_);
        const size_t pris = std::min(reste, tailleBloc_ - decalage);
        std::memcpy(suite, bloc_.data() + decalage, pris);
        suite += pris;
        position += pris;
        reste -= pris;
    }
    position_ = position;
    return true;
}

std::string LecteurOctets::Octets(uint64_t nombre)
{
    std::string octets(static_cast<size_t>(std::min(nombre, Reste())), '\0');
    octets.resize(fichier_.Lire(position_, octets.data(), octets.size()));
    position_ += octets.size();
    return octets;
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
        for (const std::string_view motif : motifs)
            place = std::min(place, PlaceDans(bloc, debutBloc, motif));
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
