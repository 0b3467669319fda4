/// Boost.PropertyTree.
#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>

#include "bench/load/reader.h"

namespace {

boost::property_tree::ptree g_tree;

}  // namespace

int BenchLoad(const char* path) {
    boost::property_tree::ini_parser::read_ini(path, g_tree);
    return 1;
}

long BenchSum(const BenchKey* keys, std::size_t count) {
    long sum = 0;
    for (std::size_t number = 0; number < count; ++number) {
        sum += g_tree.get<int>(keys[number].dotted, 0);
    }
    return sum;
}
