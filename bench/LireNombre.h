#pragma once

#include <charconv>
#include <cstdint>
#include <stdexcept>
#include <string>

// A number above zero from an argument; throws std::runtime_error with what is wrong.
inline int64_t LireNombre(const std::string& texte)
{
    int64_t nombre = 0;
    const auto [fin, erreur] = std::from_chars(texte.data(), texte.data() + texte.size(), nombre);
    if (erreur != std::errc() || fin != texte.data() + texte.size() || nombre <= 0)
        throw std::runtime_error("nombre attendu : " + texte);
    return nombre;
}
