/// How failures travel. A loader stops at its first failing step, logs one ERROR record with the
/// step's label under its own name and line, and returns the code unchanged.
///
/// The macros of this file are the only ones that return from the function they stand in; their
/// names say so. Each is a whole statement.
#pragma once

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/param_log.h"

/// Runs a step. When it fails, logs `label` with its code and returns the code.
#define CALL_OR_RETURN AT_THIS_LINE_ CALL_OR_RETURN_
#define CALL_OR_RETURN_(step, label)                                       \
    do {                                                                   \
        const ::paramgen::Status status_ = (step);                         \
        if (status_ != ::paramgen::kOk) {                                  \
            return ::paramgen::LogFailed(__func__, line_, label, status_); \
        }                                                                  \
    } while (false)

/// Formats `key` (a `Key`) from a template and its arguments. When the text does not fit, logs
/// `label` and returns -1.
#define FORMAT_OR_RETURN AT_THIS_LINE_ FORMAT_OR_RETURN_
#define FORMAT_OR_RETURN_(key, label, ...)                        \
    do {                                                          \
        if ((key).Format(__VA_ARGS__) == -1) {                    \
            return ::paramgen::LogFailed(__func__, line_, label); \
        }                                                         \
    } while (false)

/// Makes `key` the text "node:item". When it does not fit, logs "sprintf_s" and returns -1.
#define JOIN_OR_RETURN AT_THIS_LINE_ JOIN_OR_RETURN_
#define JOIN_OR_RETURN_(key, node, item)                                \
    do {                                                                \
        if ((key).Join(node, item) == -1) {                             \
            return ::paramgen::LogFailed(__func__, line_, "sprintf_s"); \
        }                                                               \
    } while (false)

/// Formats `key` as the full key of the row `field` for element `index`, under `node` where the row
/// has no node of its own. When it does not fit, logs "sprintf_s" and returns -1.
#define FORMAT_KEY_OR_RETURN AT_THIS_LINE_ FORMAT_KEY_OR_RETURN_
#define FORMAT_KEY_OR_RETURN_(key, node, field, index)                     \
    do {                                                                   \
        if (::paramgen::FormatFullKey(&(key), node, field, index) == -1) { \
            return ::paramgen::LogFailed(__func__, line_, "sprintf_s");    \
        }                                                                  \
    } while (false)

/// Loads the rows of `fields` (a row, a slice or a table) into `record`, each looked up under
/// `node` in `module`. When a row fails, what it logged stands under this function's name, and its
/// code is returned.
#define LOAD_OR_RETURN AT_THIS_LINE_ LOAD_OR_RETURN_
#define LOAD_OR_RETURN_(module, node, fields, record)                                \
    do {                                                                             \
        const ::paramgen::Status status_ =                                           \
            ::paramgen::LoadFields({__func__, line_}, module, node, fields, record); \
        if (status_ != ::paramgen::kOk) {                                            \
            return status_;                                                          \
        }                                                                            \
    } while (false)

/// Loads one row, `field`, for element `index` of what it stands for.
#define LOAD_ELEMENT_OR_RETURN AT_THIS_LINE_ LOAD_ELEMENT_OR_RETURN_
#define LOAD_ELEMENT_OR_RETURN_(module, node, field, index, record)                       \
    do {                                                                                  \
        const ::paramgen::Status status_ =                                                \
            ::paramgen::LoadField({__func__, line_}, module, node, field, index, record); \
        if (status_ != ::paramgen::kOk) {                                                 \
            return status_;                                                               \
        }                                                                                 \
    } while (false)

/// Returns -1, logging so, when a loader is given no record. For loaders that use the record before
/// they load rows into it: the row macros above make the same check.
#define REQUIRE_RECORD_OR_RETURN AT_THIS_LINE_ REQUIRE_RECORD_OR_RETURN_
#define REQUIRE_RECORD_OR_RETURN_(record)                      \
    do {                                                       \
        if ((record) == nullptr) {                             \
            return ::paramgen::LogNullRecord(__func__, line_); \
        }                                                      \
    } while (false)

/// Returns -1, logging `key` and `count`, when a count is larger than what its section has room
/// for.
#define REQUIRE_COUNT_OR_RETURN AT_THIS_LINE_ REQUIRE_COUNT_OR_RETURN_
#define REQUIRE_COUNT_OR_RETURN_(key, count, max)                                 \
    do {                                                                          \
        if ((count) > (max)) {                                                    \
            LOG_ERROR_("[%s] count[%u] is beyond the section\n", (key), (count)); \
            return ::paramgen::kFailed;                                           \
        }                                                                         \
    } while (false)
