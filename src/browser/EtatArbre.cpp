#include "browser/EtatArbre.h"

#include <algorithm>
#include <atomic>
#include <unordered_map>
#include <unordered_set>

EtatArbre NoterEtat(const Navigateur& navigateur, const std::vector<int32_t>& ouverts)
{
    const ArbreCatalogue& arbre = navigateur.arbre;
    EtatArbre etat;
    etat.base = navigateur.cheminBase;
    etat.selection = arbre.CleSelection();
    etat.montre = !etat.selection.empty() && etat.selection == arbre.Tag();

    std::unordered_map<int32_t, size_t> notes;
    const auto noter = [&](int32_t noeud, bool ouvert) {
        std::vector<int32_t> chemin;
        for (; noeud != ArbreCatalogue::Aucun && !notes.contains(noeud); noeud = arbre[noeud].parent)
            chemin.push_back(noeud);
        for (auto n = chemin.rbegin(); n != chemin.rend(); ++n) {
            const int32_t parent = arbre[*n].parent;
            notes.emplace(*n, etat.noeuds.size());
            etat.noeuds.push_back({std::string(arbre[*n].cle),
                                   std::string(parent == ArbreCatalogue::Aucun ? "" : arbre[parent].cle),
                                   ouvert && *n == chemin.front()});
        }
    };
    for (const int32_t noeud : ouverts)
        noter(noeud, true);
    noter(arbre.Selection(), false);
    return etat;
}

bool ReprendreEtat(Navigateur& navigateur, const EtatArbre& etat, IconesExtensions& icones,
                   const std::stop_token& arret)
{
    ArbreCatalogue& arbre = navigateur.arbre;
    if (etat.base != navigateur.cheminBase || etat.selection.empty())
        return false;
    std::unordered_set<std::string> lus;
    std::unordered_map<std::string_view, std::string_view> parents;
    // Nodes that a click had added below this one.
    const auto lire = [&](const std::string& cle) {
        if (arret.stop_requested() || arbre.Chercher(cle) == ArbreCatalogue::Aucun || !lus.insert(cle).second)
            return;
        std::atomic<double> part;
        AjouterNoeuds(arbre, LectureListeFichiers(cle, icones, {}, arret, part));
    };
    for (const EtatArbre::Noeud& noeud : etat.noeuds) {
        parents.emplace(noeud.cle, noeud.cleParent);
        if (arbre.Chercher(noeud.cle) == ArbreCatalogue::Aucun)
            lire(noeud.cleParent);
        const int32_t place = noeud.ouvert ? arbre.Chercher(noeud.cle) : ArbreCatalogue::Aucun;
        if (place != ArbreCatalogue::Aucun && arbre[place].enfants == 0)
            lire(noeud.cle);
    }
    std::string_view cle = etat.selection;
    while (!cle.empty() && arbre.Chercher(cle) == ArbreCatalogue::Aucun)
        cle = parents[cle];
    const int32_t noeud = arbre.Chercher(cle);
    const bool laRacineSeule =
        noeud != ArbreCatalogue::Aucun && arbre[noeud].parent == ArbreCatalogue::Aucun && cle != etat.selection;
    if (noeud == ArbreCatalogue::Aucun || laRacineSeule)
        return false;
    arbre.Selectionner(noeud);
    return true;
}
