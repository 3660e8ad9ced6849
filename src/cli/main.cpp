#include <iostream>

#include "foundation/Version.h"

int main(int argc, char** argv)
{
    std::cout << scriv::kProgramTitle << " " << scriv::kProgramVersion << "\n";
    return 0;
}
