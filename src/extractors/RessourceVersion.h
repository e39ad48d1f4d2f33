#pragma once

#include <string>

#include "platform/Fichier.h"

// Finds the version resource of a program, library, driver or font made for Windows: PE (32 and 64 bit) or NE (16 bit).
// Gives its bytes as they lie there, as many as it claims and the file holds: a Unicode block in a PE file, an ANSI one
// in an NE file. Number 1 is preferred to others, and the first language to the next ones.
// False, the text left alone, for any other file; two bytes are then read of one that is no program at all.
// Formats: Microsoft PE and COFF Specification; Executable-File Header Format (Windows 3.1 SDK).
bool LireRessourceVersion(const Fichier& fichier, std::string& bloc);
