#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// An ordinary file open for reading by blocks at any place. Never mapped: a scratched disc then gives short reads and
// does not kill the process.
class Fichier {
public:
    Fichier() = default;
    explicit Fichier(int descripteur);                // takes the descriptor over
    explicit Fichier(const std::string& cheminReel);  // closed for the file of an open base too
    ~Fichier();
    Fichier(Fichier&& autre) noexcept;
    Fichier& operator=(Fichier&& autre) noexcept;
    Fichier(const Fichier&) = delete;
    Fichier& operator=(const Fichier&) = delete;

    bool Ouvert() const { return descripteur_ >= 0; }
    uint64_t Taille() const { return taille_; }

    // Reads up to `nombre` bytes from `position`; returns how many came, fewer at the end of the file or on an error.
    // The first block is read once and kept, since headers and searches begin there again and again; a glance at a
    // signature alone costs no block. A file is for one thread at a time.
    static constexpr size_t PremierBloc = 4096;
    size_t Lire(uint64_t position, void* tampon, size_t nombre) const;

private:
    size_t LireDuDisque(uint64_t position, char* tampon, size_t nombre) const;

    int descripteur_ = -1;
    uint64_t taille_ = 0;
    mutable bool debutLu_ = false;
    mutable std::string debut_;  // the first block, shorter for a short file or after an error
};
