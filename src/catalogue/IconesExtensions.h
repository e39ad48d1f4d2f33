#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <string>

// Icon values of file extensions: ImageGenerique for one that nobody knows. Any thread may ask.
class IconesExtensions {
public:
    static constexpr int32_t Premiere = 100;
    // A disc full of made-up extensions costs no more than so many look-ups; what comes behind is generic.
    static constexpr size_t Maximum = 4096;

    int32_t Chercher(const std::string& extension);
    // Extension behind an icon value from Premiere on.
    std::string Extension(int32_t icone) const;

private:
    mutable std::mutex verrou_;
    std::map<std::string, int32_t> icones_;
    std::deque<std::string> extensions_;
};
