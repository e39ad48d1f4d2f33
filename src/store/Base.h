#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <string_view>

#include "platform/OperationsFichiers.h"
#include "store/Recordset.h"

struct Connexion;

enum TypeChamp { ChampEntier16 = 3, ChampEntier32 = 4, ChampTexte = 10, ChampMemo = 12 };

struct DefinitionChamp {
    std::string nom;
    TypeChamp type;
    int taille = 0;
};

// Why a base does not open.
enum class RefusBase { Aucun, Absente, Etrangere, Occupee, LectureSeule, Illisible };

// A base file over the engine. Statements are in the system's dialect (see TraduireSql), texts UTF-8, paths real ones.
// For one thread at a time: the one that uses the store.

// One opening of a base. Opens of one path inside the process share a connection; the last Close lets the file go.
// On a base that did not open every operation does nothing and gives an empty result.
class Base {
public:
    Base() = default;
    ~Base();
    Base(Base&&) noexcept;
    Base& operator=(Base&&) noexcept;
    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;

    bool Ouverte() const { return connexion_ != nullptr; }
    void Close();

    // From a table name or the text of a select in the system's dialect (see TraduireSql). A table name gives a record
    // set made for AddNew; its rows are read only when asked for.
    Recordset OpenRecordset(std::string_view texte);

    // Runs one delete, insert or update; false when it fails or is anything else.
    bool Execute(std::string_view texte);

    // Existence, by name without regard to case.
    bool TableDefs(std::string_view table);
    bool ChampExiste(std::string_view table, std::string_view champ);
    // Each false when the table or field exists already, or anything else fails.
    bool CreateTableDef(std::string_view table, std::initializer_list<DefinitionChamp> champs);
    bool CreateField(std::string_view table, const DefinitionChamp& champ);
    // The change counter in the head of the file: it grows with the first write of each opening. False when it can't be
    // read.
    bool LireCompteur(std::array<uint8_t, 4>& compteur);

    // Gives the bytes of the file in pieces. False within a transaction, when they are not a base.
    bool VerserFichier(const Versement& verser);

    // Hands over number, name and alias of every row of `Liste`, by number, until the function returns false. False
    // when not all rows could be read.
    bool ParcourirNoms(
        const std::function<bool(int64_t numero, std::string_view nom, std::string_view alias)>& recevoir);

    // Adds the indexes that the statements in use need and that the base lacks.
    void CreerIndex();

    // One transaction, see Transaction, which is how to use them; not nested. Valider and Annuler return false when
    // there is none any more, as after a full disk.
    bool CommencerTransaction();
    bool Valider();
    bool Annuler();

private:
    friend Base OpenDatabase(const std::string& chemin, const std::stop_token& arret, RefusBase* refus);
    std::shared_ptr<Connexion> connexion_;
    bool arretable_ = false;  // its stop token is the connection's
};

// Opens a base, exclusively and for writing. Not open when the file is missing, read-only, in use by another process,
// or no base, which `refus` is told; such a file is never written to. A request to stop ends the long selects of all
// openings of the base, as if they had no more rows, as long as this one lasts.
Base OpenDatabase(const std::string& chemin, const std::stop_token& arret = {}, RefusBase* refus = nullptr);

// Writes a compacted copy of a closed base to a new path and checks it. False, and no file left, on failure.
bool CompactDatabase(const std::string& source, const std::string& cible);

// True when compaction would make the file smaller by giving back free pages.
bool BaseARendre(const std::string& chemin);

// Writes an empty base with all its tables to a path, replacing what stands there.
bool CreerBaseVide(const std::string& chemin);
