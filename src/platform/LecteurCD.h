#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

// A place on an audio CD: 75 frames to the second, counted from the start of the lead-in, so that the first track of
// most discs begins at 00:02:00.
struct Msf {
    int minute = 0, seconde = 0, trame = 0;
    bool operator==(const Msf&) const = default;
};

inline constexpr int TramesParSeconde = 75;
inline constexpr int TramesParMinute = 60 * TramesParSeconde;

constexpr int Trames(const Msf& place)
{
    return place.minute * TramesParMinute + place.seconde * TramesParSeconde + place.trame;
}

constexpr Msf EnMsf(int trames)
{
    return {trames / TramesParMinute, trames / TramesParSeconde % 60, trames % TramesParSeconde};
}

enum class EtatLecteur { PasPret, SansDisque, TiroirOuvert, Pret };
enum class EtatLecture { Arret, EnCours, Pause };

// Where the drive plays.
struct PlaceLecture {
    EtatLecture etat = EtatLecture::Arret;
    int piste = 0;
    Msf surDisque, dansPiste;
};

// An optical drive that is open. Each question blocks its thread for up to some seconds, and is false or empty when the
// drive does not answer. One thread at a time.
class LecteurCD {
public:
    using Cdb = std::array<uint8_t, 10>;
    static constexpr int PisteFinale = 0xAA;  // the lead-out, where a track number is asked for

    virtual ~LecteurCD() = default;

    // A SCSI command that reads, with five seconds' time; what the drive does not fill keeps its bytes. True when the
    // drive reports success.
    virtual bool EnvoyerCommande(const Cdb& cdb, std::span<uint8_t> reponse) = 0;

    // The table of contents as the system reads it.
    virtual bool LireBornes(int& premiere, int& derniere) = 0;
    virtual bool LireDebut(int piste, Msf& debut) = 0;

    virtual EtatLecteur LireEtat() = 0;
    virtual bool LirePlace(PlaceLecture& place) = 0;
    virtual bool Jouer(const Msf& debut, const Msf& fin) = 0;
    virtual bool Suspendre() = 0;
    virtual bool Reprendre() = 0;
    virtual bool Arreter() = 0;
    virtual bool OuvrirTiroir() = 0;
    virtual bool FermerTiroir() = 0;
};

// The optical drives of a machine, by letter and by SCSI address.
class MachineCD {
public:
    static constexpr int TypeCdRom = 5;

    virtual ~MachineCD() = default;

    // The drive of a letter ("D:" or "D"); null when the letter is no optical drive or can't be opened.
    virtual std::unique_ptr<LecteurCD> Ouvrir(std::string_view lecteur) = 0;

    // The SCSI adapters that have devices, counted from 0, and the devices behind them: peripheral type, -1 for none.
    virtual int Adaptateurs() = 0;
    virtual int TypeAppareil(int adaptateur, int cible, int unite) = 0;
    virtual std::unique_ptr<LecteurCD> OuvrirAppareil(int adaptateur, int cible, int unite) = 0;
};

// This machine.
MachineCD& MachineReelle();
