// qor_idl: writes the component's interface description to standard output.
#include <iostream>

#include "windows/types/idl_writer.h"

int main() { std::cout << qor::windows::WriteIdl(); }
