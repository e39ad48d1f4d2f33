#pragma once

#include <QString>

#include "listings/Listing.h"

class QPrinter;

// An HTML listing as Qt's rich text shows it best. The columns of its files add up to more than the whole, and one cell
// asks for all of it: without their widths each gets the room that it needs.
QString PageListing(const ApercuListing& contenu);

// Puts a listing on paper or into a PDF file, as the printer is set; the columns of a text listing stay in line. False
// when the printer does not take it. On the worker: the text may be long.
bool ImprimerListing(QPrinter& imprimante, FormatListing format, const ApercuListing& contenu);
