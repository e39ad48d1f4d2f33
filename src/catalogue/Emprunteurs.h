#pragma once

#include <cstdint>
#include <string_view>

#include "store/Base.h"

// The statements on table `Pret`. Each gives a record set, empty when there is no such row. Numbers of borrowers are
// decimal texts.

// All borrowers, by first name; one of them, to be read, edited or deleted.
Recordset Emprunteurs(Base& base);
Recordset LireEmprunteur(Base& base, std::string_view numero);
// The media that a borrower holds, by label.
Recordset MediasPretes(Base& base, std::string_view numero);

// Number for a new borrower: one above all that a borrower has and all that a media names as its borrower, so that a
// media lent to somebody deleted never goes over to a newcomer.
int64_t NouveauNumeroEmprunteur(Base& base);
