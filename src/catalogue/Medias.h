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
// The same, for the choice of what is listed.
Recordset MediasParLabel(Base& base);
// One media, for the head of its listing.
Recordset MediaListe(Base& base, std::string_view numero);
// One media, to be read or edited.
Recordset LireMedia(Base& base, std::string_view numero);
// The media with this identifier or name, "'" included.
Recordset MediaParIdentifiant(Base& base, std::string_view identifiant);
Recordset MediaParLabel(Base& base, std::string_view label);
