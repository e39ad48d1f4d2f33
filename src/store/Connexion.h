#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <sqlite3.h>

#include "commun/Formes.h"
#include "platform/FichiersReserves.h"
#include "platform/OperationsFichiers.h"
#include "store/Base.h"

// Inside of the store only: the connection that all openings of one base share. For the thread that uses the store;
// texts are UTF-8, paths real ones.

struct FinirEnonce {
    void operator()(sqlite3_stmt* enonce) const { sqlite3_finalize(enonce); }
};
using Enonce = std::unique_ptr<sqlite3_stmt, FinirEnonce>;

// A table as the connection knows it, with the last counter value given out (-1: not asked yet).
struct TableBase {
    std::string nom;
    std::vector<std::string> colonnes;
    int compteur = -1;  // place of the column that is the row's number
    int64_t dernierNumero = -1;
};

// A value waiting to be written; the text keeps its room from row to row.
struct Valeur {
    enum Genre { Absent, Nul, Entier, Texte, Octets } genre = Absent;
    int64_t entier = 0;
    std::string texte;
};

bool Lier(sqlite3_stmt* enonce, int place, const Valeur& valeur);

// New rows of one table, written several by one statement inside a transaction: the engine keeps the table's counter
// once for each statement.
struct Lot {
    std::shared_ptr<TableBase> table;
    Enonce une;        // inserts one row
    Enonce plusieurs;  // inserts `capacite` rows
    size_t capacite = 0;
    size_t nombre = 0;  // of rows waiting
    std::vector<int64_t> numeros;
    std::vector<Valeur> valeurs;
};

// A record set that must let go of the connection before it closes.
struct Attache {
    virtual ~Attache() = default;
    virtual void Detacher() = 0;
};

struct Connexion {
    Connexion() = default;
    ~Connexion();
    Connexion(const Connexion&) = delete;
    Connexion& operator=(const Connexion&) = delete;

    // The file is untouched by all that OpenDatabase refuses.
    RefusBase Ouvrir(const std::string& chemin);

    // One statement of SQLite's own dialect; null when it is refused.
    Enonce Preparer(std::string_view texte);
    // Runs a statement to its end. A full disk or a broken file costs the whole transaction.
    bool Terminer(sqlite3_stmt* enonce);
    bool Executer(std::string_view texte);
    // First column of the first row; `absent` without one.
    int64_t Nombre(std::string_view texte, int64_t absent);
    // False while a transaction is open in name only, lost to an error.
    bool PeutEcrire() const { return !enTransaction || !sqlite3_get_autocommit(db); }

    // Takes a row's values, leaving old ones in exchange; the row is seen by all that is read afterwards.
    bool Inserer(const std::shared_ptr<TableBase>& table, int64_t numero, std::vector<Valeur>& valeurs);
    // Writes the rows that wait. On failure the transaction is lost.
    bool Vider();
    // Null for a table that is not there.
    std::shared_ptr<TableBase> Table(std::string_view nom);
    // Gives out the next number of a table; 0 when there is none left.
    int64_t Reserver(TableBase& table);
    void OublierCompteurs();
    void OublierTables();

    // Change counter of the file, as it stands there now.
    bool LireCompteur(std::array<uint8_t, 4>& compteur);

    sqlite3* db = nullptr;
    std::string cheminAvis;  // of a base whose user is told when it can't be written; else empty
    bool enTransaction = false;
    std::vector<Attache*> attaches;
    std::stop_token arret;  // long selects look at it
    const std::thread::id fil = std::this_thread::get_id();

private:
    FichierReserve fichier_;  // until the engine has let the file go

    Lot& LotDe(const std::shared_ptr<TableBase>& table);
    bool Ecrire(Lot& lot);

    std::recursive_mutex verrou_;  // tables and waiting rows; the engine guards the rest itself
    Lot* enAttente_ = nullptr;     // the one that holds rows
    std::map<std::string, Lot> lots_;
    std::map<std::string, std::shared_ptr<TableBase>, std::less<>> tables_;
};

// Without regard to case in A-Z.
bool MemeNom(std::string_view a, std::string_view b);
// First word of a statement, in lower case.
std::string PremierMot(std::string_view texte);
std::string EntreGuillemets(std::string_view nom);

// The engine's own handle of a database file, valid as long as the connection; null when there is none.
sqlite3_file* FichierDuMoteur(sqlite3* db);
// Gives the bytes of the file in pieces, read by that handle.
bool VerserDuMoteur(sqlite3* db, const Versement& verser);

// True while a base is open in this process by this path.
bool BaseOuverteIci(const std::string& chemin);
