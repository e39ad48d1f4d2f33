#include "outils/ServeurHttp.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace {

bool Lisible(int descripteur)
{
    pollfd attente{descripteur, POLLIN, 0};
    return poll(&attente, 1, 20) > 0;
}

// Whether all of the request has come, its body too.
bool Complete(const std::string& requete)
{
    const size_t fin = requete.find("\r\n\r\n");
    if (fin == requete.npos)
        return false;
    const size_t longueur = requete.find("Content-Length: ");
    const size_t corps = longueur < fin ? std::strtoul(requete.c_str() + longueur + 16, nullptr, 10) : 0;
    return requete.size() >= fin + 4 + corps;
}

}  // namespace

Reponse Http(const std::string& corps, const std::string& statut, size_t annonces)
{
    return {"HTTP/1.1 " + statut + "\r\nContent-Type: text/plain\r\nContent-Length: " +
            std::to_string(std::max(annonces, corps.size())) + "\r\nConnection: close\r\n\r\n" + corps};
}

ServeurHttp::ServeurHttp(std::function<Reponse(const std::string& requete)> repondre)
    : repondre_(std::move(repondre)), ecoute_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in adresse{};
    adresse.sin_family = AF_INET;
    adresse.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t taille = sizeof adresse;
    bind(ecoute_, reinterpret_cast<sockaddr*>(&adresse), taille);
    listen(ecoute_, 8);
    getsockname(ecoute_, reinterpret_cast<sockaddr*>(&adresse), &taille);
    port_ = ntohs(adresse.sin_port);
    fil_ = std::jthread([this](const std::stop_token& arret) { Servir(arret); });
}

ServeurHttp::~ServeurHttp()
{
    fil_ = {};
    close(ecoute_);
}

std::string ServeurHttp::Adresse() const
{
    return "127.0.0.1:" + std::to_string(port_);
}

std::vector<std::string> ServeurHttp::Requetes() const
{
    const std::lock_guard garde(verrou_);
    return requetes_;
}

std::vector<std::string> ServeurHttp::Lignes() const
{
    std::vector<std::string> lignes;
    for (const std::string& requete : Requetes())
        lignes.push_back(requete.substr(0, requete.find("\r\n")));
    return lignes;
}

std::jthread ServeurHttp::ArreterALaPremiere(std::stop_source& arret) const
{
    return std::jthread([this, &arret] {
        while (Requetes().empty())
            std::this_thread::yield();
        arret.request_stop();
    });
}

void ServeurHttp::Servir(const std::stop_token& arret)
{
    while (!arret.stop_requested()) {
        if (!Lisible(ecoute_))
            continue;
        const int connexion = accept4(ecoute_, nullptr, nullptr, SOCK_CLOEXEC);
        Traiter(connexion, arret);
        close(connexion);
    }
}

void ServeurHttp::Traiter(int connexion, const std::stop_token& arret)
{
    std::string requete;
    while (!Complete(requete)) {
        char octets[4096];
        if (arret.stop_requested())
            return;
        if (!Lisible(connexion))
            continue;
        const ssize_t lus = read(connexion, octets, sizeof octets);
        if (lus <= 0)
            return;
        requete.append(octets, static_cast<size_t>(lus));
    }
    {
        const std::lock_guard garde(verrou_);
        requetes_.push_back(requete);
    }
    const Reponse reponse = repondre_(requete);
    while (reponse.muette && !arret.stop_requested() && !Lisible(connexion)) {
    }
    const size_t morceau = reponse.morceau != 0 ? reponse.morceau : std::max<size_t>(reponse.octets.size(), 1);
    for (size_t place = 0; place < reponse.octets.size();) {
        const std::string_view suite = std::string_view(reponse.octets).substr(place, morceau);
        const ssize_t envoyes = send(connexion, suite.data(), suite.size(), MSG_NOSIGNAL);
        if (envoyes <= 0)
            return;
        place += static_cast<size_t>(envoyes);
    }
}
