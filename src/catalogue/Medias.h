#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "store/Base.h"
#include "store/BaseCourante.h"

// The statements on table `Catalogue`. Each gives a record set, empty when there is no such row. Numbers of media are
// decimal texts, as keys give them.

// The media that the tree shows, by label.
Recordset MediasMontres(Base& base);
// All of them, those of an interrupted run too, by label.
Recordset TousLesMedias(Base& base);
// The same, for the choice of what is listed.
Recordset MediasParLabel(Base& base);
// One media, for the head of its listing.
Recordset MediaListe(Base& base, std::string_view numero);
// One media, to be read or edited.
Recordset LireMedia(Base& base, std::string_view numero);
// Place of a media among all of them by label, from 0; -1 when there is none of this number.
int RangParLabel(Base& base, std::string_view numero);
// The media with this identifier or name, in which each "'" must be doubled to be found.
std::string DoublerApostrophes(std::string_view texte);
Recordset MediaParIdentifiant(Base& base, std::string_view identifiant);
Recordset MediaParLabel(Base& base, std::string_view label);

// Deletes what a media holds, then the media itself; false, and the rest undone, when one of them fails inside a
// transaction.
bool EffacerMedia(Base& base, std::string_view numero);
// The same in a transaction of its own, and the run that reads a drive is stopped. Nothing for an empty number.
// False when nothing was deleted.
bool SupprimerMedia(std::string_view numero, const std::string& base = BaseCourante());

// Makes a media visible or not and stores its directory tree; false when nothing could be written.
bool ModifierCatalogue(int64_t numero, bool drapeau, std::string_view arbre, const std::string& base = BaseCourante());
