// qor_pages FILE...: writes the tables in the pages of docs/reports anew.
#include <fstream>
#include <iostream>
#include <sstream>

#include "viewer/pages/report_tables.h"

int main(int count, char** arguments) {
    for (int i = 1; i < count; ++i) {
        try {
            std::ostringstream page;
            page << std::ifstream(arguments[i], std::ios::binary).rdbuf();
            const std::string current = qor::viewer::WithCurrentTables(page.str());
            std::ofstream(arguments[i], std::ios::binary) << current;
        } catch (const std::exception& error) {
            std::cerr << arguments[i] << ": " << error.what() << '\n';
            return 1;
        }
    }
    return 0;
}
