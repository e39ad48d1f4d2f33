#pragma once

#include <string>

#include "platform/Fichier.h"

// Finds the version resource of a program, library, driver or font made for Windows: PE (32 and 64 bit) or NE (16 bit).
// Gives its bytes as the system of that name hands them over: the Unicode block of a PE file with some zeros behind it,
// the ANSI block of an NE file as it lies. Number 1 is preferred to others, and the first language to the next ones.
// False, the text left alone, for any other file; two bytes are then read of one that is no program at all.
// Formats: Microsoft PE and COFF Specification; Executable-File Header Format (Windows 3.1 SDK).
bool LireRessourceVersion(const Fichier& fichier, std::string& bloc);
