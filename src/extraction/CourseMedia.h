#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/ArretCourse.h"
#include "extraction/AjouterFichier.h"

class QWidget;

// What a window shows of a run: a copy, taken at any moment.
struct Avancement {
    CompteursExtraction compteurs;
    std::string pourcentage;           // "12,34 %", empty before the first
    double part = 0;                   // width of the bar, 0 to 1
    bool mesurable = true;             // false: nobody knows how much there is, so that the two above stay as they are
    std::string ligne;                 // progress line: the path at work
    std::vector<std::string> entrees;  // names read last, "\\" behind those of directories; a few only
};

enum class FinExtraction { Complete, Abandonnee, Echec };

// One run as the wizard conducts it: it reads a media into a base under the number that VerifierCatalogue gave. There
// is one at a time. Executer runs on a worker; all else is for the window's thread.
class CourseMedia {
public:
    // `base`: its path.
    CourseMedia(std::string base, int64_t media) : base_(std::move(base)), arret_(CommencerCourse()), media_(media) {}
    virtual ~CourseMedia() = default;
    CourseMedia(const CourseMedia&) = delete;
    CourseMedia& operator=(const CourseMedia&) = delete;

    const std::string& CheminBase() const { return base_; }
    int64_t Media() const { return media_; }

    // Writes the media, all or nothing, and compacts the base. After an abandoned run or one that can't be written
    // (full disk) nothing of the media is left.
    virtual FinExtraction Executer() = 0;
    // The run ends as soon as it can.
    void Abandonner() { ArreterCourse(); }
    virtual Avancement Lire() const = 0;

protected:
    const std::string base_;
    const std::stop_token arret_;
    const int64_t media_;
};

// Makes the run for an optical drive without a mounted volume, which is an audio disc; its choices open over `fenetre`.
using FabriqueCourseCD =
    std::function<std::unique_ptr<CourseMedia>(std::string base, int64_t media, char lettre, QWidget* fenetre)>;
