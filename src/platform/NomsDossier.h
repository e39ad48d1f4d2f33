#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The names of one directory, as its volume gives them, to be taken in order: without regard to case, by capitals;
// names that differ in case only by their bytes.
class NomsDossier {
public:
    // `type`: as the directory tells it, handed back with the name.
    void Ajouter(std::string_view nom, uint8_t type);
    void Trier();

    size_t Nombre() const { return places_.size(); }
    const char* Nom(size_t rang) const { return octets_.data() + places_[rang].nom; }
    uint8_t Type(size_t rang) const { return places_[rang].type; }
    void Vider();

private:
    // A name and, in front of it, what it is sorted by; both end in a NUL.
    struct Place {
        size_t cle, nom;
        uint8_t type;
    };

    std::string octets_;
    std::vector<Place> places_;
};
