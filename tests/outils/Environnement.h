#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

// A test with folders of its own: configuration, program directory and a place for its files, all below one temporary
// folder that goes with the test.
class Environnement : public ::testing::Test {
protected:
    Environnement();
    ~Environnement() override;

    // Runs a command of the shell among the test's own files; the test fails when it does.
    void Executer(const std::string& commande) const;

    std::filesystem::path racine_;     // everything below
    std::filesystem::path programme_;  // program directory
    std::filesystem::path travail_;    // for the test's own files
};

// Writes a file, making its folders.
void Ecrire(const std::filesystem::path& chemin, std::string_view contenu);
std::string Contenu(const std::filesystem::path& chemin);
