#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>

// What the engine itself says of a file, past the store: statements run, last text of each row given.
inline std::vector<std::string> Brut(const std::string& chemin, const std::string& sql)
{
    sqlite3* db = nullptr;
    sqlite3_open(chemin.c_str(), &db);
    std::vector<std::string> lignes;
    const auto recevoir = [](void* cible, int nombre, char** valeurs, char**) {
        static_cast<std::vector<std::string>*>(cible)->emplace_back(valeurs[nombre - 1] ? valeurs[nombre - 1]
                                                                                        : "(null)");
        return 0;
    };
    char* erreur = nullptr;
    sqlite3_exec(db, sql.c_str(), recevoir, &lignes, &erreur);
    EXPECT_EQ(erreur, nullptr) << erreur << " in " << sql;
    sqlite3_free(erreur);
    sqlite3_close(db);
    return lignes;
}
