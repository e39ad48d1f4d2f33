#pragma once

#include <string>
#include <utility>

// An open file descriptor, closed with its holder. Only for sources of platform/.
class Descripteur {
public:
    Descripteur() = default;
    explicit Descripteur(int valeur) : valeur_(valeur) {}
    ~Descripteur() { Fermer(); }
    Descripteur(Descripteur&& autre) noexcept : valeur_(autre.Ceder()) {}
    Descripteur& operator=(Descripteur&& autre) noexcept
    {
        if (this != &autre) {
            Fermer();
            valeur_ = autre.Ceder();
        }
        return *this;
    }
    Descripteur(const Descripteur&) = delete;
    Descripteur& operator=(const Descripteur&) = delete;

    bool Ouvert() const { return valeur_ >= 0; }
    int Valeur() const { return valeur_; }
    int Ceder() { return std::exchange(valeur_, -1); }
    void Fermer();

private:
    int valeur_ = -1;
};

// open(2) with O_CLOEXEC for a path of any length.
Descripteur OuvrirChemin(const std::string& chemin, int drapeaux);

// False for names that would lead out of a directory: "", ".", ".." and those with "/" or NUL.
bool NomSimple(const std::string& nom);
