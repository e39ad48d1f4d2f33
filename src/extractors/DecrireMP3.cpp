#include "extractors/DecrireMP3.h"

#include <fmt/format.h>

#include "extractors/clsMP3.h"

bool DecrireMP3(const Fichier& fichier, std::string& resultat)
{
    clsMP3 mp3;
    if (!mp3.ReadMP3(fichier))
        return false;
    resultat = fmt::format(
        "Album: {}\r\n"
        "Chanson: {}\r\n"
        "Artiste: {}\r\n"
        "Genre: {}\r\n"
        "Bitrate: {}\r\n"
        "Durée: {}\r\n"
        "Fréquence: {}\r\n"
        "Mode: {}\r\n"
        "Layer: {}\r\n"
        "Mpeg version: {}\r\n"
        "Année: {}\r\n"
        "Commentaire: {}",
        mp3.Album, mp3.Title, mp3.Artist, mp3.Genre, mp3.Bitrate, mp3.Duration, mp3.Frequency, mp3.Mode, mp3.Layer,
        mp3.MpegVersion, mp3.Year, mp3.Comment);
    return true;
}
