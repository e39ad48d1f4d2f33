#include "platform/OperationsFichiers.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <system_error>
#include <vector>

#include <fmt/format.h>

#include "platform/Descripteur.h"
#include "platform/Fichier.h"

namespace {
thread_local int erreurEcriture = 0;  // 0: nothing has failed yet

// Keeps what the system says by now, unless an earlier step has failed already.
bool Echouer()
{
    if (erreurEcriture == 0)
        erreurEcriture = errno;
    return false;
}

bool EstDeType(const std::string& chemin, mode_t type)
{
    struct stat etat {};
    return stat(chemin.c_str(), &etat) == 0 && (etat.st_mode & S_IFMT) == type;
}

bool Verser(int descripteur, std::string_view octets)
{
    while (!octets.empty()) {
        const ssize_t ecrits = write(descripteur, octets.data(), octets.size());
        if (ecrits < 0 && errno == EINTR)
            continue;
        if (ecrits <= 0)
            return Echouer();
        octets.remove_prefix(static_cast<size_t>(ecrits));
    }
    return true;
}

// A target that is a link is replaced where it leads.
std::string CibleReelle(const std::string& chemin)
{
    const std::unique_ptr<char, decltype(&free)> reel(realpath(chemin.c_str(), nullptr), &free);
    return reel ? std::string(reel.get()) : chemin;
}

std::string DossierDe(const std::string& chemin)
{
    const size_t barre = chemin.rfind('/');
    if (barre == std::string::npos)
        return ".";
    return barre == 0 ? "/" : chemin.substr(0, barre);
}

constexpr std::string_view DebutBrouillon = ".velourne-brouillon-";

// The process that made a draft, by the draft's name; 0 for any other name.
pid_t AuteurDuBrouillon(std::string_view nom)
{
    if (!nom.starts_with(DebutBrouillon))
        return 0;
    nom.remove_prefix(DebutBrouillon.size());
    pid_t auteur = 0;
    unsigned rang = 0;
    const char* fin = nom.data() + nom.size();
    const auto [tiret, erreur] = std::from_chars(nom.data(), fin, auteur);
    if (erreur != std::errc() || tiret == fin || *tiret != '-')
        return 0;
    const auto [reste, suite] = std::from_chars(tiret + 1, fin, rang);
    return suite == std::errc() && reste == fin && auteur > 0 ? auteur : 0;
}

Descripteur CreerBrouillon(const std::string& dossier, mode_t mode, std::string& chemin)
{
    static std::atomic<unsigned> compteur;
    for (int essai = 0; essai < 1000; ++essai) {
        chemin = fmt::format("{}/{}{}-{}", dossier, DebutBrouillon, getpid(), ++compteur);
        Descripteur brouillon(open(chemin.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
        if (brouillon.Ouvert())
            flock(brouillon.Valeur(), LOCK_EX | LOCK_NB);  // tells those on other machines that it is in use
        if (brouillon.Ouvert() || errno != EEXIST)
            return brouillon;
    }
    return {};
}

void SynchroniserDossier(const std::string& dossier)
{
    const Descripteur descripteur(open(dossier.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descripteur.Ouvert())
        fsync(descripteur.Valeur());
}

bool Remplacer(const std::string& chemin, bool prive, const std::function<bool(int)>& remplir,
               const std::function<bool(const std::string&)>& avant = {})
{
    const std::string cible = CibleReelle(chemin);
    const std::string dossier = DossierDe(cible);
    std::string nomBrouillon;
    erreurEcriture = 0;
    Descripteur brouillon = CreerBrouillon(dossier, prive ? 0600 : 0666, nomBrouillon);
    if (!brouillon.Ouvert())
        return Echouer();

    struct stat ancien {};
    bool reussi = true;
    if (!prive && stat(cible.c_str(), &ancien) == 0) {
        errno = S_ISDIR(ancien.st_mode) ? EISDIR : EINVAL;
        reussi = (S_ISREG(ancien.st_mode) && fchmod(brouillon.Valeur(), ancien.st_mode & 07777) == 0) || Echouer();
    }
    reussi = reussi && remplir(brouillon.Valeur()) && (fsync(brouillon.Valeur()) == 0 || Echouer());
    // Network file systems may fail only here.
    reussi = (close(brouillon.Ceder()) == 0 || (reussi && Echouer())) && reussi;
    if (reussi && avant) {
        reussi = avant(cible);
        SynchroniserDossier(dossier);
    }
    if (!reussi || (rename(nomBrouillon.c_str(), cible.c_str()) != 0 && !Echouer())) {
        unlink(nomBrouillon.c_str());
        return false;
    }
    SynchroniserDossier(dossier);
    return true;
}
}  // namespace

std::string ErreurEcriture()
{
    return erreurEcriture == 0 ? std::string() : std::generic_category().message(erreurEcriture);
}

bool FichierExiste(const std::string& chemin)
{
    return EstDeType(chemin, S_IFREG);
}

bool DossierExiste(const std::string& chemin)
{
    return EstDeType(chemin, S_IFDIR);
}

bool CopierFichier(const std::string& source, const std::string& cible)
{
    const Fichier entree(source);
    if (!entree.Ouvert())
        return false;
    return Remplacer(cible, false, [&](int sortie) {
        return VerserFichier(entree, [sortie](std::string_view octets) { return Verser(sortie, octets); });
    });
}

bool VerserFichier(const Fichier& fichier, const Versement& verser)
{
    std::string tampon(size_t{1} << 20, '\0');
    for (uint64_t position = 0; position < fichier.Taille();) {
        const size_t lus = fichier.Lire(position, tampon.data(), tampon.size());
        if (lus == 0 || !verser(std::string_view(tampon.data(), lus)))
            return false;
        position += lus;
    }
    return fichier.Ouvert();
}

bool EcrireFichier(const std::string& chemin, std::string_view octets, bool prive)
{
    return Remplacer(chemin, prive, [&](int sortie) { return Verser(sortie, octets); });
}

bool EcrireFichier(const std::string& chemin, const std::function<bool(const Versement&)>& remplir, bool prive)
{
    return EcrireFichier(chemin, remplir, prive, {});
}

bool EcrireFichier(const std::string& chemin, const std::function<bool(const Versement&)>& remplir, bool prive,
                   const std::function<bool(const std::string&)>& avant)
{
    const auto verser = [&](int sortie) {
        return remplir([sortie](std::string_view octets) { return Verser(sortie, octets); });
    };
    return Remplacer(chemin, prive, verser, avant);
}

bool RenommerSansEcraser(const std::string& ancien, const std::string& nouveau)
{
    if (renameat2(AT_FDCWD, ancien.c_str(), AT_FDCWD, nouveau.c_str(), RENAME_NOREPLACE) == 0) {
        SynchroniserDossier(DossierDe(nouveau));
        return true;
    }
    // Some file systems know no such renaming, and some of these no second name either.
    struct stat etat {};
    return errno == EINVAL && lstat(nouveau.c_str(), &etat) != 0 && errno == ENOENT &&
           rename(ancien.c_str(), nouveau.c_str()) == 0;
}

void NettoyerBrouillons(const std::string& dossier)
{
    std::error_code erreur;
    std::vector<std::string> vieux;
    for (std::filesystem::directory_iterator entree(dossier, erreur), fin; !erreur && entree != fin;
         entree.increment(erreur)) {
        const pid_t auteur = AuteurDuBrouillon(entree->path().filename().string());
        if (auteur > 0 && kill(auteur, 0) != 0 && errno == ESRCH)
            vieux.push_back(entree->path().string());
    }
    for (const std::string& chemin : vieux) {
        const Descripteur brouillon(open(chemin.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        struct stat etat {};
        if (brouillon.Ouvert() && fstat(brouillon.Valeur(), &etat) == 0 && S_ISREG(etat.st_mode) &&
            etat.st_uid == geteuid() && flock(brouillon.Valeur(), LOCK_EX | LOCK_NB) == 0)
            unlink(chemin.c_str());
    }
}

bool LireEtatFichier(const std::string& chemin, EtatFichier& etat)
{
    struct stat lu {};
    if (stat(chemin.c_str(), &lu) != 0)
        return false;
    constexpr int64_t parSeconde = 1'000'000'000;
    etat = {static_cast<uint64_t>(lu.st_size), lu.st_ino, lu.st_mtim.tv_sec * parSeconde + lu.st_mtim.tv_nsec};
    return true;
}

bool LireFichier(const std::string& chemin, std::string& octets)
{
    const Fichier fichier(chemin);
    if (!fichier.Ouvert())
        return false;
    std::string lus(static_cast<size_t>(fichier.Taille()), '\0');
    if (fichier.Lire(0, lus.data(), lus.size()) != lus.size())
        return false;
    octets = std::move(lus);
    return true;
}

bool SupprimerFichier(const std::string& chemin)
{
    return unlink(chemin.c_str()) == 0;
}

VerrouFichier::VerrouFichier(const std::string& chemin, bool attendre)
{
    Descripteur descripteur(open(chemin.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!descripteur.Ouvert())
        return;
    int resultat = 0;
    do {
        resultat = flock(descripteur.Valeur(), LOCK_EX | (attendre ? 0 : LOCK_NB));
    } while (resultat != 0 && errno == EINTR);
    if (resultat == 0)
        descripteur_ = descripteur.Ceder();
}

VerrouFichier::~VerrouFichier()
{
    if (descripteur_ >= 0)
        close(descripteur_);
}
