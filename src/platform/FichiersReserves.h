#pragma once

#include <cstdint>
#include <string>

// Files of open bases. The system drops all locks of a process on a file as soon as any descriptor of it is closed, so
// nothing but the engine may open such a file while its base is open. Any thread may call all of this.

// A file as the system knows it, whatever name leads to it.
struct NumeroFichier {
    uint64_t peripherique = 0;
    uint64_t inode = 0;
    auto operator<=>(const NumeroFichier&) const = default;
};

// False when nothing stands at the path.
bool LireNumeroFichier(const std::string& chemin, NumeroFichier& numero);

// Keeps the file of one base to the engine while it lives.
class FichierReserve {
public:
    FichierReserve() = default;
    ~FichierReserve();
    FichierReserve(const FichierReserve&) = delete;
    FichierReserve& operator=(const FichierReserve&) = delete;

    // Once for each object. False when there is no such file or it is kept already, by whatever path.
    bool Prendre(const std::string& chemin);

private:
    NumeroFichier numero_;
    bool pris_ = false;
};

bool EstReserve(const NumeroFichier& numero);

// Whether an entry of an open directory belongs to the engine: a base that is open, a journal beside one, or the
// scratch base of the program directory.
bool EntreeReservee(int dossier, const char* nom, const NumeroFichier& numero);
