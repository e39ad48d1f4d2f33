#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "store/BaseCourante.h"
#include "store/DrapeauxRecharge.h"
#include "store/ListeExtensions.h"

// The current base and what is done to whole bases. All of it runs with errors ignored, step by step: what fails shows
// as a missing result. Paths are real ones. For the thread that uses the store, but for the abort flag.

std::string CheminModele();           // "Data.z" in the program directory
std::string CheminBaseParDefaut();    // "defaut.vlr" there
std::string CheminIconeTemporaire();  // "icon.tmp" there

// Finds the current base, makes it if missing, brings it to the present tables and fields, loads the extension list.
void InitialiserBase();

// Clears what killed processes left, at the start: drafts beside the base and in the program's own folders, and name
// indexes of bases that are gone.
void NettoyerRestes();

// If no file stands at the current path: an empty base "defaut.vlr" becomes current. Returns true when that happened.
// `memoriser`: the setting "BaseCourante" is saved too.
bool GarantirBase(bool memoriser);

// An empty "defaut.vlr" in the program directory. One that holds media is first renamed aside with the date, and the
// user is told its new path (ReprendreAvis); where that can't be done it stays as it is, with the result false.
bool PoserBaseParDefaut();

// Copies the template, or an empty base made on the spot when there is none.
bool CopierModele(const std::string& cible);

// "BaseCourante" with its default, into the current path. While no file stands there, the base that GarantirBase has
// put in its stead stays.
void RelireBaseCourante();

void CompacterBase();

// Deletes the rows of a media, all or none, and sets the abort flag of the extraction. Nothing for an empty number.
// False when nothing was deleted.
bool SupprimerMedia(std::string_view numero, const std::string& base = BaseCourante());

// Makes a media visible or not and stores its directory tree; false when nothing could be written.
bool ModifierCatalogue(int64_t numero, bool drapeau, std::string_view arbre, const std::string& base = BaseCourante());

// Writes the extension list into the base; false when it could not be written.
bool EnregistrerExtensions(const std::string& base = BaseCourante());

// Set to stop the walk of an extraction.
bool ExtractionAbandonnee();
void FixerAbandon(bool abandon);
