#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct Connexion;

// The rows of a select or a table, in order, with one current row. A record set that failed to open is empty, and all
// its operations do nothing. Fields are named without regard to case; texts are UTF-8 and may hold NULs. For the
// thread that uses the store.
class Recordset {
public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    // Exact number of rows, counted at the first call.
    int64_t RecordCount();
    // True behind the last row, and on an empty set.
    bool Eof();
    void MoveNext();
    void Close();

    // Place of a field in the rows, for reading many rows; -1 when there is none.
    int Indice(std::string_view champ);

    // Values of the current row. A text stays valid until the row changes. Null reads as "" and 0.
    bool EstNul(int indice);
    std::string_view Texte(int indice);  // the bytes, for a binary field
    int64_t Entier(int indice);
    bool EstNul(std::string_view champ) { return EstNul(Indice(champ)); }
    std::string_view Texte(std::string_view champ) { return Texte(Indice(champ)); }
    int64_t Entier(std::string_view champ) { return Entier(Indice(champ)); }

    // A new row, empty but for its counter, which Numero gives at once; or the current row, to be changed.
    void AddNew();
    void Edit();
    // Number of the row that AddNew or Edit works on, else of the current row; 0 without one.
    int64_t Numero();

    void Poser(std::string_view champ, std::string_view texte);
    void Poser(std::string_view champ, int64_t entier);
    void PoserOctets(std::string_view champ, std::string_view octets);
    void PoserNul(std::string_view champ);

    // Writes the row of AddNew or Edit; false when the engine refuses (full disk, closed set).
    bool Update();
    bool Delete();

    // Number of the row last written; Bookmark makes it the current one.
    int64_t LastModified() const;
    void Bookmark(int64_t numero);

private:
    friend class Base;
    struct Etat;
    std::unique_ptr<Etat> etat_;
};
