#include "compile/imagined.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <new>

namespace paramgen::compile {
namespace {

/// A product that has all modules, and fails at one query.
class FailingProduct : public Imagined {
public:
    explicit FailingProduct(int answers) : answers_(answers) {}

    bool HasModule(std::string_view) override { return true; }

    std::optional<std::string> Text(std::string_view, std::string_view,
                                    const std::optional<Place>&) override {
        ++queries_;
        if (queries_ > answers_) {
            throw std::bad_alloc();
        }
        return std::nullopt;
    }

    int Queries() const { return queries_; }

private:
    int answers_;
    int queries_ = 0;
};

TEST(Imagined, WhatAProductThrowsIsThrownWhenTheRunIsOver) {
    FailingProduct failing(20);
    EXPECT_THROW(static_cast<void>(CompileImagined(&failing, true)), std::bad_alloc);
    EXPECT_EQ(failing.Queries(), 21) << "nothing is asked afterwards";
    FailingProduct whole(INT_MAX);
    const Compilation result = CompileImagined(&whole, true);
    EXPECT_EQ(result.status, kOk) << "nothing is left locked or registered";
    EXPECT_EQ(result.answers.size(), static_cast<std::size_t>(whole.Queries()));
}

}  // namespace
}  // namespace paramgen::compile
