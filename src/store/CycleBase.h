#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The current base and what is done to whole bases. All of it runs with errors ignored, step by step: what fails shows
// as a missing result.

// Path of the current base, process-wide.
const std::string& BaseCourante();
void FixerBaseCourante(const std::string& chemin);

std::string CheminModele();           // "Data.z" in the program directory
std::string CheminBaseParDefaut();    // "defaut.vlr" there
std::string CheminIconeTemporaire();  // "icon.tmp" there

// Finds the current base, makes it if missing, brings it to the present tables and fields, loads the extension list.
void InitialiserBase();

// If no file stands at the current path: an empty base "defaut.vlr" becomes current. Returns true when that happened.
// `memoriser`: the setting "BaseCourante" is saved too.
bool GarantirBase(bool memoriser);

// Copies the template, or an empty base made on the spot when there is none.
bool CopierModele(const std::string& cible);

// "BaseCourante" with its default, into the current path.
void RelireBaseCourante();

void CompacterBase();

// Deletes the rows of a media and sets the abort flag of the extraction. Nothing for an empty number.
void SupprimerMedia(std::string_view numero);

// Makes a media visible or not and stores its directory tree; false when nothing could be written.
bool ModifierCatalogue(int64_t numero, bool drapeau, std::string_view arbre);

// The extension list of the current base: each extension behind a "|".
const std::string& ListeExtensions();
// Appends the extension unless the list holds it anywhere, even as a part of another. True when the list grew.
bool AjouterExtension(std::string_view extension);
bool EnregistrerExtensions();

// Set to stop the walk of an extraction.
bool ExtractionAbandonnee();
void FixerAbandon(bool abandon);

// Set when the browser must load its tree anew at the next occasion.
bool ArbreARecharger();
void FixerArbreARecharger(bool recharger);
bool IconesARecharger();
void FixerIconesARecharger(bool recharger);
