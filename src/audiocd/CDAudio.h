#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "audiocd/InterpreteCD.h"

// A player of audio CDs: each operation is a command string on the alias "cd". Texts of answers stand in the time
// format in use; a command that fails answers "" and 0.
class CDAudio {
public:
    explicit CDAudio(MachineCD& machine) : interprete_(machine) {}

    void StartPlay() { Envoyer("play cd"); }
    void SetTrack(int64_t n) { Envoyer("seek cd to " + std::to_string(n)); }
    void StopPlay() { Envoyer("stop cd wait"); }
    void PausePlay() { Envoyer("pause cd"); }
    void EjectCD() { Envoyer("set cd door open"); }
    void CloseCD() { Envoyer("set cd door closed"); }
    void UnloadAll() { Envoyer("close all"); }
    // A drive: "D:".
    void SetCDPlayerReady(std::string_view lecteur)
    {
        Envoyer("open " + std::string(lecteur) + " Type cdaudio Alias cd  wait shareable");
    }
    void SetFormat_tmsf() { Envoyer("set cd time format tmsf wait"); }
    void SetFormat_milliseconds() { Envoyer("set cd time format milliseconds"); }
    std::string CheckCD() { return Envoyer("status cd media present"); }
    int64_t GetNumTracks();
    std::string GetCDLength() { return Envoyer("status cd length wait"); }
    std::string GetTrackLength(int64_t n) { return Envoyer("status cd length track " + std::to_string(n)); }
    std::string GetCDPosition() { return Envoyer("status cd position"); }
    bool CheckIfPlaying() { return Envoyer("status cd mode").starts_with("playing"); }
    // A place in the time format in use.
    void SeekCDtoX(std::string_view x) { Envoyer("seek cd to " + std::string(x)); }
    void ReadyDevice(std::string_view x) { SeekCDtoX(x); }
    void FastForward(int64_t ms) { Avancer(ms); }
    void ReWind(int64_t ms) { Avancer(-ms); }
    void MoveCD(std::string_view x)
    {
        SeekCDtoX(x);
        Envoyer("Play cd");
    }

    // Sends a command string as it is.
    std::string Envoyer(const std::string& commande);

private:
    void Avancer(int64_t ms);

    InterpreteCD interprete_;
};
