#pragma once

#include <string>

#include "platform/Fichier.h"

// What an MP3 file tells of itself: the facts of its first MPEG-1 Layer III frame (ISO/IEC 11172-3) and its tags
// (ID3v1, then ID3v2.2 or 2.3 over it). All are texts, empty where the file tells nothing.
class clsMP3 {
public:
    std::string Duration;   // "3m 25s"
    std::string Frequency;  // sampling rate in hertz
    std::string Mode;       // "stereo", "joint stereo", "dual channel" or "single channel"
    std::string Layer;
    std::string MpegVersion;
    std::string Bitrate;  // kilobits a second
    std::string Title;
    std::string Artist;
    std::string Album;
    std::string Year;
    std::string Comment;
    std::string Genre;
    std::string Track;
    bool Xing = false;  // the bit rate is an average, from the frame count of a "Xing" header

    // Reads all fields anew. Where the file is damaged or ends too early, the fields found before stay. Always true.
    bool ReadMP3(const Fichier& fichier);

private:
    void LireFlux(const Fichier& fichier);
    void LireEtiquettes(const Fichier& fichier);
    bool LireID3v1(const Fichier& fichier);  // false ends the reading of the tags
    bool LireID3v2(const Fichier& fichier);  // the same
};
