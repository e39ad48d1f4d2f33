#include "store/PoserBase.h"

#include "platform/Fichier.h"
#include "store/Base.h"
#include "store/Connexion.h"

namespace {

constexpr const char* Journaux[] = {"-journal", "-wal", "-shm"};

bool OterJournaux(const std::string& base)
{
    bool otes = true;
    for (const char* journal : Journaux)
        if (FichierExiste(base + journal))
            otes = SupprimerFichier(base + journal) && otes;
    return otes;
}

// A base that is about to go has its own journal played first: should the exchange not come to its end, it is whole.
bool PreparerPlace(const std::string& cible)
{
    if (FichierExiste(cible + Journaux[0]))
        OpenDatabase(cible);
    return OterJournaux(cible);
}

struct FermerBase {
    void operator()(sqlite3* db) const { sqlite3_close(db); }
};

// A file that does not open for writing: kept still by a read lock if it is a base.
bool VerserSansOuvrir(const std::string& source, const Versement& verser)
{
    sqlite3* db = nullptr;
    const int ouverture = sqlite3_open_v2(source.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
    const std::unique_ptr<sqlite3, FermerBase> garde(db);
    if (ouverture != SQLITE_OK)
        return false;
    const int etat = sqlite3_exec(db, "begin; select count(*) from sqlite_master", nullptr, nullptr, nullptr) & 0xff;
    return (etat == SQLITE_OK || etat == SQLITE_NOTADB || etat == SQLITE_CORRUPT) && VerserDuMoteur(db, verser);
}

}  // namespace

bool PoserBase(const std::string& cible, const std::function<bool(const Versement&)>& remplir)
{
    NumeroFichier numero;
    if (LireNumeroFichier(cible, numero) && EstReserve(numero))
        return false;
    return EcrireFichier(cible, remplir, false, PreparerPlace);
}

bool PoserCopie(const std::string& source, const std::string& cible)
{
    const Fichier fichier(source);
    return fichier.Ouvert() &&
           PoserBase(cible, [&fichier](const Versement& verser) { return VerserFichier(fichier, verser); });
}

bool CopierBase(const std::string& source, const std::string& cible)
{
    if (!FichierExiste(source))
        return false;
    Base base = OpenDatabase(source);
    return PoserBase(cible, [&](const Versement& verser) {
        return base.Ouverte() ? base.VerserFichier(verser) : VerserSansOuvrir(source, verser);
    });
}

bool SupprimerBase(const std::string& chemin)
{
    return SupprimerFichier(chemin) && OterJournaux(chemin);
}
