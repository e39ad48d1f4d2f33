#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "catalogue/ArbreCatalogue.h"
#include "catalogue/Cles.h"
#include "store/Base.h"

// The statements on table `Liste`. Each gives a record set, empty when there is no such row or the engine takes
// exception to a "'" in a name. Numbers of media are decimal texts, as keys give them.

// How many rows the base holds.
int64_t NombreDeLignes(Base& base);

// What a directory or an archive holds, by name.
Recordset LignesContenu(Base& base, const CleNoeud& noeud);
// Its files alone, by name and alias: neither directories nor folders inside archives.
Recordset LignesFichiers(Base& base, const CleNoeud& noeud);
// The top directory of a media, whose name is its drive.
Recordset LigneRacine(Base& base, std::string_view media);
// The directories of a media by their codes: what its tree can be made of when it has no text of it.
Recordset LignesRepertoires(Base& base, int64_t media);

// A name with a "'" is asked for in vain.
bool NomDemandable(std::string_view nom);

// The row of a node below a media: by the directory that holds it and its name, else by its alias.
Recordset TrouverLigne(Base& base, const ArbreCatalogue& arbre, int32_t noeud);
// The row behind a node of any kind, the media's top directory among them; none for the root.
Recordset LigneNoeud(Base& base, const ArbreCatalogue& arbre, int32_t noeud);

// A directory's own row, by its code.
Recordset LigneRepertoire(Base& base, std::string_view media, std::string_view code);
// The same, which must bear this name or alias.
Recordset LigneRepertoire(Base& base, std::string_view media, std::string_view code, std::string_view nom);
// One entry by the number of its row.
Recordset LigneNumero(Base& base, std::string_view numero);
// The same, which must be of this media and bear this name or alias.
Recordset LigneNumero(Base& base, std::string_view numero, std::string_view media, std::string_view nom);

// What is a directory is said differently by its readers.
bool EstRepertoire(std::string_view attribut);               // "D" alone
bool EstRepertoireOuDansArchive(std::string_view attribut);  // "D" or "Z"

// Name shown of the current row: the alias, unless it is null.
std::string_view NomMontre(Recordset& ligne);
