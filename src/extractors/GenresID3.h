#pragma once

#include <string_view>

// The name of an ID3v1 genre (0 to 125), from its number, whole or rounded, as a user may write it ("17", "+17",
// "17.0"); empty for any other number.
std::string_view GenreID3(std::string_view numero);
