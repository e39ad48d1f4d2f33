#include "platform/Http.h"

#include <curl/curl.h>

#include <memory>

#include <QNetworkProxyFactory>
#include <QNetworkProxyQuery>
#include <QUrl>

namespace {

using Poignee = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;
using Groupe = std::unique_ptr<CURLM, decltype(&curl_multi_cleanup)>;
using Entetes = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

size_t Recevoir(char* octets, size_t, size_t nombre, void* cible)
{
    auto& corps = *static_cast<std::string*>(cible);
    if (nombre > TailleMaximaleReponse - corps.size())
        return 0;  // ends the transfer
    corps.append(octets, nombre);
    return nombre;
}

// The desktop's proxy for an address, in the form of the library; empty to go straight. This machine needs none.
std::string Proxy(const std::string& adresse)
{
    const QUrl url(QString::fromStdString(adresse));
    const QString hote = url.host();
    if (hote == "localhost" || hote.startsWith("127.") || hote == "::1")
        return {};
    const QList<QNetworkProxy> proxies = QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url));
    if (proxies.isEmpty() || proxies.first().hostName().isEmpty())
        return {};
    const QNetworkProxy& proxy = proxies.first();
    return (proxy.type() == QNetworkProxy::Socks5Proxy ? "socks5h://" : "http://") + proxy.hostName().toStdString() +
           ":" + std::to_string(proxy.port());
}

void Preparer(CURL* poignee, const RequeteHttp& requete, curl_slist* entetes, std::string& corps, long delai)
{
    curl_easy_setopt(poignee, CURLOPT_URL, requete.adresse.c_str());
    curl_easy_setopt(poignee, CURLOPT_PROTOCOLS_STR, "http");
    curl_easy_setopt(poignee, CURLOPT_FOLLOWLOCATION, 0L);
    curl_easy_setopt(poignee, CURLOPT_USERAGENT, requete.agent.c_str());
    curl_easy_setopt(poignee, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(poignee, CURLOPT_TIMEOUT, delai);
    curl_easy_setopt(poignee, CURLOPT_QUICK_EXIT, 1L);
    curl_easy_setopt(poignee, CURLOPT_PROXY, Proxy(requete.adresse).c_str());
    if (!requete.utilisateur.empty()) {
        curl_easy_setopt(poignee, CURLOPT_USERNAME, requete.utilisateur.c_str());
        curl_easy_setopt(poignee, CURLOPT_PASSWORD, requete.motDePasse.c_str());
        curl_easy_setopt(poignee, CURLOPT_PROXYUSERNAME, requete.utilisateur.c_str());
        curl_easy_setopt(poignee, CURLOPT_PROXYPASSWORD, requete.motDePasse.c_str());
    }
    if (requete.corps) {
        curl_easy_setopt(poignee, CURLOPT_HTTP_VERSION, CURL_HTTP_VERSION_1_0);
        curl_easy_setopt(poignee, CURLOPT_POST, 1L);
        curl_easy_setopt(poignee, CURLOPT_POSTFIELDS, requete.corps->data());
        curl_easy_setopt(poignee, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(requete.corps->size()));
    }
    curl_easy_setopt(poignee, CURLOPT_HTTPHEADER, entetes);
    curl_easy_setopt(poignee, CURLOPT_WRITEFUNCTION, Recevoir);
    curl_easy_setopt(poignee, CURLOPT_WRITEDATA, &corps);
}

// Lets the transfer run to its end.
CURLcode Transferer(CURLM* groupe, const std::stop_token& arret)
{
    const std::stop_callback reveil(arret, [groupe] { curl_multi_wakeup(groupe); });
    for (int actifs = 1;;) {
        if (arret.stop_requested())
            return CURLE_ABORTED_BY_CALLBACK;
        if (curl_multi_perform(groupe, &actifs) != CURLM_OK)
            return CURLE_FAILED_INIT;
        if (actifs == 0)
            break;
        curl_multi_poll(groupe, nullptr, 0, 1000, nullptr);
    }
    int restants = 0;
    const CURLMsg* message = curl_multi_info_read(groupe, &restants);
    return message && message->msg == CURLMSG_DONE ? message->data.result : CURLE_FAILED_INIT;
}

}  // namespace

ReponseHttp EnvoyerHttp(const RequeteHttp& requete, std::stop_token arret, long delai)
{
    static const CURLcode pret = curl_global_init(CURL_GLOBAL_DEFAULT);
    const Poignee poignee(curl_easy_init(), &curl_easy_cleanup);
    const Groupe groupe(curl_multi_init(), &curl_multi_cleanup);
    ReponseHttp reponse;
    if (pret != CURLE_OK || !poignee || !groupe) {
        reponse.erreur = CURLE_FAILED_INIT;
        return reponse;
    }

    // The library would put these two before the headers that are wanted.
    curl_slist* liste = nullptr;
    for (const char* sans : {"Accept:", "Content-Type:"})
        liste = curl_slist_append(liste, sans);
    for (const std::string& entete : requete.entetes)
        liste = curl_slist_append(liste, entete.c_str());
    const Entetes entetes(liste, &curl_slist_free_all);
    Preparer(poignee.get(), requete, entetes.get(), reponse.corps, delai);

    curl_multi_add_handle(groupe.get(), poignee.get());
    reponse.erreur = Transferer(groupe.get(), arret);
    curl_easy_getinfo(poignee.get(), CURLINFO_RESPONSE_CODE, &reponse.statut);
    curl_multi_remove_handle(groupe.get(), poignee.get());
    if (reponse.erreur != 0)
        return {reponse.erreur, 0, {}};
    return reponse;
}

std::string TexteErreurHttp(long erreur)
{
    if (erreur <= 0 || erreur >= CURL_LAST)
        return {};
    const std::string texte = curl_easy_strerror(static_cast<CURLcode>(erreur));
    return texte == "Unknown error" ? std::string() : texte;
}
