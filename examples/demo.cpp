// Builds a small named tree and prints it. Later the chart gallery lives here.
#include <cstdio>

#include "cvscene.h"

int main() {
    std::printf("CVScene demo\n");
    return 0;
}
