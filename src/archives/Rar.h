#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/LecteurOctets.h"

// What the catalogue keeps of a member's header.
struct EnteteRar {
    std::string FileName;             // "\" between elements, 259 characters at most
    std::optional<uint64_t> UnpSize;  // bytes; none when the archive does not tell
};

// The members of a RAR archive of version 1.5 to 5, or of a self-extracting one, header by header: data is stepped over
// and never read. Other volumes are not followed, and encrypted headers end the list. Each header's CRC must be right,
// as all that follows hangs on its sizes.
class ArchiveRar {
public:
    explicit ArchiveRar(const Fichier& fichier) : fichier_(fichier), lecteur_(fichier) {}

    // Finds the archive's beginning; false when the file is no RAR archive.
    bool RAROpenArchive();

    // The header of the next member; false at the end of the list.
    bool RARReadHeader(EnteteRar& entete);

    // Steps over the data of the member just read. A member that goes on in the next volume ends the list.
    void RARProcessFile();

private:
    bool LireMembre4(EnteteRar& entete);
    bool LireMembre5(EnteteRar& entete);

    const Fichier& fichier_;
    LecteurOctets lecteur_;
    bool rar5_ = false;
    bool volume_ = false;
    uint64_t tailleDonnees_ = 0;  // of the member just read
    bool suiteAilleurs_ = false;
};
