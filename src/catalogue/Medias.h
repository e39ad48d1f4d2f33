#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "store/Base.h"

// The statements on table `Catalogue`. Each gives a record set, empty when there is no such row. Numbers of media are
// decimal texts, as keys give them.

// The media that the tree shows, by label.
Recordset MediasMontres(Base& base);
// All of them, those of an interrupted run too, by label.
Recordset TousLesMedias(Base& base);
// One media, to be read or edited.
Recordset LireMedia(Base& base, std::string_view numero);
// Place of a media among all of them by label, from 0; -1 when there is none of this number.
int RangParLabel(Base& base, std::string_view numero);
// The media with this identifier or name, "'" included.
Recordset MediaParIdentifiant(Base& base, std::string_view identifiant);
Recordset MediaParLabel(Base& base, std::string_view label);
