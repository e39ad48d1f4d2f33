#pragma once

#include <string_view>

// The name of an ID3v1 genre (0 to 125), from its number as digits; empty for any other number.
std::string_view GenreID3(std::string_view numero);
