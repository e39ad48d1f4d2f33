#pragma once

#include "listings/Listing.h"

class QPrinter;

// Puts a listing on paper or into a PDF file, as the printer is set; the columns of a text listing stay in line. False
// when the printer does not take it. On the worker: the text may be long.
bool ImprimerListing(QPrinter& imprimante, FormatListing format, const ApercuListing& contenu);
