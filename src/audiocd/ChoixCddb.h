#pragma once

#include <stop_token>
#include <string>
#include <vector>

// What the CDDB client asks of the user. Windows answer by their lists, tests and tools by themselves. May be asked on
// a worker thread; an answer that is still wanted when the stop is asked for is 0.
class ChoixCddb {
public:
    virtual ~ChoixCddb() = default;

    // The row chosen, counted from 1; 0 when the list was closed without one. `soumission`: an entry of the user's own
    // might be sent instead. `haut`, `gauche`: where the list opens, pixels of the screen.
    virtual int ChoisirDisque(const std::vector<std::string>& titres, bool soumission, long haut, long gauche,
                              std::stop_token arret) = 0;
    virtual int ChoisirServeur(const std::vector<std::string>& rangees, std::stop_token arret) = 0;
};

// A line of a server list as a row: host, latitude and longitude, then the description, by tabs.
std::string RangeeServeur(std::string_view ligne);
// The host that a line names.
std::string HoteServeur(std::string_view ligne);

// Keeps the server of a row in the settings: its text up to the end of the first ".org".
void EnregistrerServeur(std::string_view rangee);
