#pragma once

#include <string>

#include "platform/Fichier.h"

// Describes a PDF file by four lines: title, creation date, author ("Créateur") and producer ("Nom"), each empty when
// its key is missing. Only titles and authors written as UTF-16 hexadecimal strings are read, of which each byte but 0
// becomes a character; the producer is the raw text up to the first ">". False when the file is not open or a value has
// no ">" behind it.
bool DecrirePDF(const Fichier& fichier, std::string& resultat);
