#include "extractors/GenresID3.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <string>

#include "commun/Formes.h"

namespace {

// By number, with the program's own spellings (kept, particularité 35).
constexpr std::string_view Genres[] = {"Blues",
                                       "Classic Rock",
                                       "Country",
                                       "Dance",
                                       "Disco",
                                       "Funk",
                                       "Grunge",
                                       "Hip-Hop",
                                       "Jazz",
                                       "Metal",
                                       "New Age",
                                       "Oldies",
                                       "Other",
                                       "Pop",
                                       "R&B",
                                       "Rap",
                                       "Reggae",
                                       "Rock",
                                       "Techno",
                                       "Industrial",
                                       "Alternative",
                                       "Ska",
                                       "Death Metal",
                                       "Pranks",
                                       "Soundtrack",
                                       "Euro-Techno",
                                       "Ambient",
                                       "Trip-Hop",
                                       "Vocal",
                                       "Jazz+Funk",
                                       "Fusion",
                                       "Trance",
                                       "Classical",
                                       "Instrumental",
                                       "Acid",
                                       "House",
                                       "Game",
                                       "Sound Clip",
                                       "Gospel",
                                       "Noise",
                                       "AlternRock",
                                       "Bass",
                                       "Soul",
                                       "Punk",
                                       "Space",
                                       "Meditative",
                                       "Instrumental Pop",
                                       "Instrumental Rock",
                                       "Ethnic",
                                       "Gothic",
                                       "Darkwave",
                                       "Techno-Indistrial",
                                       "Electronic",
                                       "Pop-Folk",
                                       "Eurodance",
                                       "Dream",
                                       "Southern Rock",
                                       "Comedy",
                                       "Cult",
                                       "Gansta",
                                       "Top 40",
                                       "Christian Rap",
                                       "Pop/Funk",
                                       "Jungle",
                                       "Native American",
                                       "Cabaret",
                                       "New Wave",
                                       "Psychaledic",
                                       "Rave",
                                       "Showtunes",
                                       "Trailer",
                                       "Lo-Fi",
                                       "Tribal",
                                       "Acid Punk",
                                       "Acid Jazz",
                                       "Polka",
                                       "Retro",
                                       "Musical",
                                       "Rock & Roll",
                                       "Hard Rock",
                                       "Folk",
                                       "Folk-Rock",
                                       "National Folk",
                                       "Swing",
                                       "Fast Fusion",
                                       "Bebop",
                                       "Latin",
                                       "Revival",
                                       "Celtic",
                                       "Bluegrass",
                                       "Avantgarde",
                                       "Gothic Rock",
                                       "Progressive Rock",
                                       "Psychadelic Rock",
                                       "Symphonic Rock",
                                       "Slow Rock",
                                       "Big Band",
                                       "Chorus",
                                       "Easy Listening",
                                       "Acoustic",
                                       "Humour",
                                       "Speech",
                                       "Chanson",
                                       "Opera",
                                       "Chamber Music",
                                       "Sonata",
                                       "Symphony",
                                       "Booty Bass",
                                       "Primus",
                                       "Porn Groove",
                                       "Satire",
                                       "Slow Jam",
                                       "Club",
                                       "Tango",
                                       "Samba",
                                       "Folklore",
                                       "Ballad",
                                       "Power Ballad",
                                       "Rhythmic Soul",
                                       "Freestyle",
                                       "Duet",
                                       "Punk Rock",
                                       "Drum Solo",
                                       "A Capella",
                                       "Euro-House",
                                       "Dance Hall"};
static_assert(std::size(Genres) == 126);

}  // namespace

std::string_view GenreID3(std::string_view numero)
{
    numero = Trim(numero);
    const bool negatif = numero.starts_with('-');
    if (negatif || numero.starts_with('+'))
        numero.remove_prefix(1);
    std::string chiffres(numero);
    if (const size_t place = chiffres.find_first_not_of("0123456789"); place != std::string::npos)
        chiffres.replace(place, chiffres.find_first_of("0123456789", place) - place, ".");  // as the user writes it
    double valeur = -1;
    std::from_chars(chiffres.data(), chiffres.data() + chiffres.size(), valeur);
    const double rang = std::nearbyint(negatif ? -valeur : valeur);
    return rang >= 0 && rang < std::size(Genres) ? Genres[static_cast<size_t>(rang)] : std::string_view();
}
