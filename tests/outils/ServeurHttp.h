#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

// An answer as it goes over the wire, and what goes wrong with it.
struct Reponse {
    std::string octets;
    size_t morceau = 0;   // bytes sent at a time; 0 for all at once
    bool muette = false;  // the connection then stays open without a word until the server goes
};

// An HTTP answer with this body; `annonces` bytes are claimed where the body is cut off.
Reponse Http(const std::string& corps, const std::string& statut = "200 OK", size_t annonces = 0);

// A server on a free port of the loopback, on a thread of its own, one connection at a time.
class ServeurHttp {
public:
    // Gives the answer to a request: its head and body as received.
    explicit ServeurHttp(std::function<Reponse(const std::string& requete)> repondre);
    ~ServeurHttp();

    std::string Adresse() const;  // "127.0.0.1:12345"
    std::vector<std::string> Requetes() const;
    // The first line of each.
    std::vector<std::string> Lignes() const;
    // Asks for the stop as soon as a request has come.
    std::jthread ArreterALaPremiere(std::stop_source& arret) const;

private:
    void Servir(const std::stop_token& arret);
    void Traiter(int connexion, const std::stop_token& arret);

    std::function<Reponse(const std::string&)> repondre_;
    int ecoute_ = -1;
    int port_ = 0;
    mutable std::mutex verrou_;
    std::vector<std::string> requetes_;
    std::jthread fil_;
};
