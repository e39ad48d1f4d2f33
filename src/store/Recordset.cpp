#include "store/Recordset.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "commun/Formes.h"
#include "store/Base.h"
#include "store/Connexion.h"
#include "store/TraduireSql.h"

namespace {

size_t Blancs(std::string_view texte)
{
    return std::min(texte.find_first_not_of(" \t\r\n"), texte.size());
}

// Takes the next word of a statement, up to a blank or a mark.
std::string_view PrendreMot(std::string_view& texte)
{
    texte.remove_prefix(Blancs(texte));
    const size_t fin = std::min(texte.find_first_of(" \t\r\n*;,()'\"=<>"), texte.size());
    const std::string_view mot = texte.substr(0, fin);
    texte.remove_prefix(fin);
    return mot;
}

// Parts of "select * from TABLE ..."; no table for a select of another shape.
struct SelectSimple {
    std::string_view table;
    std::string_view suite;
};

SelectSimple Decouper(std::string_view texte)
{
    if (!MemeNom(PrendreMot(texte), "select"))
        return {};
    texte.remove_prefix(Blancs(texte));
    if (texte.empty() || texte.front() != '*')
        return {};
    texte.remove_prefix(1);
    if (!MemeNom(PrendreMot(texte), "from"))
        return {};
    const std::string_view table = PrendreMot(texte);
    std::string_view reste = texte;
    const std::string_view suivant = PrendreMot(reste);
    const bool simple = suivant.empty() ? Blancs(reste) == reste.size() || reste[Blancs(reste)] == ';'
                                        : MemeNom(suivant, "where") || MemeNom(suivant, "order");
    return simple ? SelectSimple{table, texte} : SelectSimple{};
}

// The text without its final "order by", which a count does not need.
std::string_view SansOrdre(std::string_view texte)
{
    bool chaine = false;
    for (size_t i = 0; i < texte.size(); ++i) {
        chaine = chaine != (texte[i] == '\'');
        if (!chaine && (i == 0 || texte[i - 1] == ' ') && MemeNom(texte.substr(i, 6), "order ")) {
            std::string_view reste = texte.substr(i + 6);
            if (MemeNom(PrendreMot(reste), "by"))
                return texte.substr(0, i);
        }
    }
    return texte;
}

}  // namespace

struct Recordset::Etat final : Attache {
    explicit Etat(Connexion& ouverte) : connexion(&ouverte) { connexion->attaches.push_back(this); }
    ~Etat() override { Quitter(); }
    Etat(const Etat&) = delete;
    Etat& operator=(const Etat&) = delete;

    void Detacher() override
    {
        lignes.reset();
        parNumero.reset();
        Quitter();
    }

    void Quitter()
    {
        if (!connexion)
            return;
        auto& liste = connexion->attaches;
        liste.erase(std::find(liste.begin(), liste.end(), this));
        connexion = nullptr;
    }

    // The statement that stands on the current row, null without one.
    sqlite3_stmt* Courante()
    {
        if (!connexion || supprimee)
            return nullptr;
        return signet ? LigneDuSignet() : LigneSuivie();
    }

    sqlite3_stmt* LigneSuivie()
    {
        if (!commence)
            Avancer();
        return fini ? nullptr : lignes.get();
    }

    sqlite3_stmt* LigneDuSignet()
    {
        if (signetLu)
            return signetPresent ? parNumero.get() : nullptr;
        if (!parNumero) {
            const std::string nom = EntreGuillemets(table->nom);
            parNumero = connexion->Preparer("select *, rowid from " + nom + " where rowid = ?1");
        }
        connexion->Vider();
        signetLu = true;
        sqlite3_reset(parNumero.get());
        sqlite3_bind_int64(parNumero.get(), 1, signet);
        signetPresent = parNumero && sqlite3_step(parNumero.get()) == SQLITE_ROW;
        return signetPresent ? parNumero.get() : nullptr;
    }

    void Avancer()
    {
        connexion->Vider();
        if (!lignes && !commence)
            lignes = connexion->Preparer(texte);
        commence = true;
        if (fini || (lignes && sqlite3_step(lignes.get()) == SQLITE_ROW))
            return;
        fini = true;
        lignes.reset();
    }

    void PoserSignet(int64_t place)
    {
        signet = place;
        signetLu = false;
        supprimee = false;
    }

    Valeur* APoser(std::string_view champ, Valeur::Genre genre)
    {
        if (!connexion || mode == Lecture)
            return nullptr;
        const int place = Place(champ);
        if (place < 0 || place == table->compteur)
            return nullptr;
        Valeur& valeur = valeurs[static_cast<size_t>(place)];
        valeur.genre = genre;
        return &valeur;
    }

    // Fields are mostly set in one and the same order: the search begins behind the last one found.
    int Place(std::string_view champ)
    {
        const auto nombre = colonnes.size();
        for (size_t essai = 0; essai < nombre; ++essai) {
            const size_t i = dernierePlace + essai < nombre ? dernierePlace + essai : dernierePlace + essai - nombre;
            if (!MemeNom(colonnes[i], champ))
                continue;
            dernierePlace = i + 1 == nombre ? 0 : i + 1;
            return static_cast<int>(i);
        }
        return -1;
    }

    bool Modifier();

    enum Mode { Lecture, Ajout, Edition };

    Connexion* connexion;
    std::shared_ptr<TableBase> table;  // none: rows can't be written
    std::string texte;                 // of the select, for the engine
    std::string texteCompte;
    std::vector<std::string> colonnes;
    size_t dernierePlace = 0;

    Enonce lignes;  // walks the rows
    bool commence = false;
    bool fini = false;
    Enonce parNumero;  // the row of the bookmark
    int64_t signet = 0;
    bool signetLu = false;
    bool signetPresent = false;
    bool supprimee = false;  // stands on a row just deleted
    int64_t compte = -1;

    Mode mode = Lecture;
    int64_t numero = 0;
    int64_t dernierModifie = 0;
    std::vector<Valeur> valeurs;
};

bool Recordset::Etat::Modifier()
{
    std::string sql = "update " + EntreGuillemets(table->nom) + " set ";
    bool posee = false;
    for (size_t i = 0; i < valeurs.size(); ++i) {
        if (valeurs[i].genre != Valeur::Absent)
            sql.append(std::exchange(posee, true) ? "," : "").append(EntreGuillemets(colonnes[i])).append("=?");
    }
    if (!posee)
        return true;
    const Enonce enonce = connexion->Preparer(sql + " where rowid=?");
    int place = 1;
    for (const Valeur& valeur : valeurs) {
        if (valeur.genre != Valeur::Absent && !Lier(enonce.get(), place++, valeur))
            return false;
    }
    sqlite3_bind_int64(enonce.get(), place, numero);
    return connexion->Terminer(enonce.get()) && sqlite3_changes(connexion->db) == 1;
}

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

Recordset Base::OpenRecordset(std::string_view texte)
{
    if (!connexion_)
        return {};
    auto etat = std::make_unique<Recordset::Etat>(*connexion_);
    if (const auto table = connexion_->Table(texte)) {
        etat->table = table;
        etat->colonnes = table->colonnes;
        const std::string nom = EntreGuillemets(table->nom);
        etat->texte = "select *, rowid from " + nom;
        etat->texteCompte = "select count(*) from " + nom;
        Recordset jeu;
        jeu.etat_ = std::move(etat);
        return jeu;
    }

    if (PremierMot(texte) != "select")
        return {};
    const SelectSimple simple = Decouper(texte);
    etat->table = simple.table.empty() ? nullptr : connexion_->Table(simple.table);
    if (etat->table) {
        const std::string nom = EntreGuillemets(etat->table->nom);
        etat->texte = "select *, rowid from " + nom + TraduireSql(simple.suite);
        etat->texteCompte = "select count(*) from " + nom + TraduireSql(SansOrdre(simple.suite));
    } else {
        etat->texte = TraduireSql(texte);
        std::string compte = TraduireSql(SansOrdre(texte));
        compte.resize(std::min(compte.find_last_not_of(" \t\r\n;") + 1, compte.size()));
        etat->texteCompte = "select count(*) from (" + compte + ")";
    }
    etat->lignes = connexion_->Preparer(etat->texte);
    sqlite3_stmt* lignes = etat->lignes.get();
    if (!lignes || !sqlite3_stmt_readonly(lignes))
        return {};
    const int nombre = sqlite3_column_count(lignes) - (etat->table ? 1 : 0);
    for (int i = 0; i < nombre; ++i)
        etat->colonnes.emplace_back(sqlite3_column_name(lignes, i));
    Recordset jeu;
    jeu.etat_ = std::move(etat);
    return jeu;
}

int64_t Recordset::RecordCount()
{
    if (!etat_ || !etat_->connexion)
        return 0;
    if (etat_->compte < 0)
        etat_->compte = etat_->connexion->Nombre(etat_->texteCompte, 0);
    return etat_->compte;
}

bool Recordset::Eof()
{
    return !etat_ || (!etat_->supprimee && !etat_->Courante());
}

void Recordset::MoveNext()
{
    if (!etat_ || !etat_->connexion)
        return;
    etat_->mode = Etat::Lecture;
    etat_->signet = 0;
    etat_->supprimee = false;
    // Without a row read so far, the first one is the next.
    etat_->Avancer();
}

void Recordset::Close()
{
    etat_.reset();
}

int Recordset::Indice(std::string_view champ)
{
    return etat_ ? etat_->Place(champ) : -1;
}

bool Recordset::EstNul(int indice)
{
    sqlite3_stmt* ligne = etat_ && indice >= 0 ? etat_->Courante() : nullptr;
    return !ligne || sqlite3_column_type(ligne, indice) == SQLITE_NULL;
}

std::string_view Recordset::Texte(int indice)
{
    sqlite3_stmt* ligne = etat_ && indice >= 0 ? etat_->Courante() : nullptr;
    if (!ligne)
        return {};
    const void* debut = sqlite3_column_type(ligne, indice) == SQLITE_BLOB ? sqlite3_column_blob(ligne, indice)
                                                                          : sqlite3_column_text(ligne, indice);
    if (!debut)
        return {};
    return {static_cast<const char*>(debut), static_cast<size_t>(sqlite3_column_bytes(ligne, indice))};
}

int64_t Recordset::Entier(int indice)
{
    sqlite3_stmt* ligne = etat_ && indice >= 0 ? etat_->Courante() : nullptr;
    return ligne ? sqlite3_column_int64(ligne, indice) : 0;
}

void Recordset::AddNew()
{
    if (!etat_ || !etat_->connexion || !etat_->table)
        return;
    etat_->numero = etat_->connexion->Reserver(*etat_->table);
    etat_->mode = etat_->numero ? Etat::Ajout : Etat::Lecture;
    etat_->valeurs.resize(etat_->colonnes.size());
    for (Valeur& valeur : etat_->valeurs)
        valeur.genre = Valeur::Absent;
}

void Recordset::Edit()
{
    if (!etat_ || !etat_->table)
        return;
    etat_->mode = Etat::Lecture;
    const int64_t numero = Numero();
    if (!numero)
        return;
    etat_->numero = numero;
    etat_->mode = Etat::Edition;
    etat_->valeurs.resize(etat_->colonnes.size());
    for (Valeur& valeur : etat_->valeurs)
        valeur.genre = Valeur::Absent;
}

int64_t Recordset::Numero()
{
    if (!etat_ || !etat_->table)
        return 0;
    if (etat_->mode != Etat::Lecture)
        return etat_->numero;
    sqlite3_stmt* ligne = etat_->Courante();
    return ligne ? sqlite3_column_int64(ligne, sqlite3_column_count(ligne) - 1) : 0;
}

void Recordset::Poser(std::string_view champ, std::string_view texte)
{
    if (Valeur* valeur = etat_ ? etat_->APoser(champ, Valeur::Texte) : nullptr)
        valeur->texte = texte;
}

void Recordset::Poser(std::string_view champ, int64_t entier)
{
    if (Valeur* valeur = etat_ ? etat_->APoser(champ, Valeur::Entier) : nullptr)
        valeur->entier = entier;
}

void Recordset::PoserOctets(std::string_view champ, std::string_view octets)
{
    if (Valeur* valeur = etat_ ? etat_->APoser(champ, Valeur::Octets) : nullptr)
        valeur->texte = octets;
}

void Recordset::PoserNul(std::string_view champ)
{
    if (etat_)
        etat_->APoser(champ, Valeur::Nul);
}

bool Recordset::Update()
{
    if (!etat_ || !etat_->connexion || etat_->mode == Etat::Lecture)
        return false;
    const bool ajout = std::exchange(etat_->mode, Etat::Lecture) == Etat::Ajout;
    const bool fait =
        ajout ? etat_->connexion->Inserer(etat_->table, etat_->numero, etat_->valeurs) : etat_->Modifier();
    if (!fait)
        return false;
    etat_->dernierModifie = etat_->numero;
    if (ajout)
        etat_->compte += etat_->compte >= 0;
    else
        etat_->PoserSignet(etat_->numero);
    return true;
}

bool Recordset::Delete()
{
    if (!etat_ || !etat_->connexion || !etat_->table)
        return false;
    etat_->mode = Etat::Lecture;
    const int64_t numero = Numero();
    if (!numero)
        return false;
    const std::string nom = EntreGuillemets(etat_->table->nom);
    if (!etat_->connexion->Executer("delete from " + nom + " where rowid=" + std::to_string(numero)))
        return false;
    etat_->supprimee = true;
    etat_->compte -= etat_->compte > 0;
    return true;
}

int64_t Recordset::LastModified() const
{
    return etat_ ? etat_->dernierModifie : 0;
}

void Recordset::Bookmark(int64_t numero)
{
    if (etat_ && etat_->connexion && etat_->table && numero > 0)
        etat_->PoserSignet(numero);
}
