#pragma once

#include <string>
#include <string_view>

inline constexpr std::string_view ImageFichier = "fichier", ImageArchive = "archive";

// Which of the program's own pictures of kinds of files stands for an extension (lower case, without "."): ImageFichier
// for a kind without a picture, nothing for an unknown extension. No file is looked at.
std::string_view ImageDuType(const std::string& extension);
