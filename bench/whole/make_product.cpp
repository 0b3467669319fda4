/// Writes a product made up at random, as the tests do: make_product <number> <directory>
#include <cstdlib>
#include <filesystem>

#include "golden/random_product.h"
#include "support/temp_dir.h"

int main(int count, char** arguments) {
    if (count != 3) {
        return 2;
    }
    const paramgen::testing::TempDir product;
    WriteRandomProduct(product, paramgen::testing::AllKeys(),
                       std::strtoull(arguments[1], nullptr, 10), paramgen::testing::Health::kGood);
    std::filesystem::copy(product.path(), arguments[2], std::filesystem::copy_options::recursive);
    return 0;
}
