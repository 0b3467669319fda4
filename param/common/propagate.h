/// How failures travel. A loader stops at its first failing step, logs one ERROR record with the
/// step's label under its own name and line, and returns the code unchanged.
///
/// The macros of this file are the only ones that return from the function they stand in; their
/// names say so. Each is a whole statement.
#pragma once

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/node_template.h"
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

/// Makes `key` the text that the template `where` gives for the arguments that follow: an optional
/// prefix, and the numbers of the array elements that lead there. `where` is a table or rows of
/// one, whose node is meant, or the template itself. When the text does not fit, logs `label` and
/// returns -1.
#define FILL_OR_RETURN AT_THIS_LINE_ FILL_OR_RETURN_
#define FILL_OR_RETURN_(key, label, where, ...)                                         \
    do {                                                                                \
        if (::paramgen::FillTemplate(&(key), where __VA_OPT__(, ) __VA_ARGS__) == -1) { \
            return ::paramgen::LogFailed(__func__, line_, label);                       \
        }                                                                               \
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

/// Loads `rows` (a slice or a table) into `record`, looked up in `module` under the node that their
/// table gives for the numbers that follow, two at most. When that does not fit, logs "sprintf_s"
/// and returns -1.
#define LOAD_AT_OR_RETURN AT_THIS_LINE_ LOAD_AT_OR_RETURN_
#define LOAD_AT_OR_RETURN_(module, rows, record, ...)                            \
    do {                                                                         \
        const ::paramgen::Status status_ = ::paramgen::LoadRowsAt(               \
            {__func__, line_}, module, rows, record __VA_OPT__(, ) __VA_ARGS__); \
        if (status_ != ::paramgen::kOk) {                                        \
            return status_;                                                      \
        }                                                                        \
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

// The same for what several loaders have in common: records stand under the loader at `site`.

/// As `CALL_OR_RETURN`.
#define CALL_FOR_OR_RETURN(site, step, label)                                           \
    do {                                                                                \
        const ::paramgen::Status status_ = (step);                                      \
        if (status_ != ::paramgen::kOk) {                                               \
            return ::paramgen::LogFailed((site).function, (site).line, label, status_); \
        }                                                                               \
    } while (false)

/// As `FILL_OR_RETURN`, with the label "sprintf_s".
#define FILL_FOR_OR_RETURN(site, key, where, ...)                                       \
    do {                                                                                \
        if (::paramgen::FillTemplate(&(key), where __VA_OPT__(, ) __VA_ARGS__) == -1) { \
            return ::paramgen::LogFailed((site).function, (site).line, "sprintf_s");    \
        }                                                                               \
    } while (false)

/// As `FORMAT_KEY_OR_RETURN`.
#define FORMAT_KEY_FOR_OR_RETURN(site, key, node, field, index)                      \
    do {                                                                             \
        if (::paramgen::FormatFullKey(&(key), node, field, index) == -1) {           \
            return ::paramgen::LogFailed((site).function, (site).line, "sprintf_s"); \
        }                                                                            \
    } while (false)

/// As `LOAD_ELEMENT_OR_RETURN`.
#define LOAD_FOR_OR_RETURN(site, module, node, field, index, record)         \
    do {                                                                     \
        const ::paramgen::Status status_ =                                   \
            ::paramgen::LoadField(site, module, node, field, index, record); \
        if (status_ != ::paramgen::kOk) {                                    \
            return status_;                                                  \
        }                                                                    \
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
#define REQUIRE_COUNT_OR_RETURN_(key, count, max)                        \
    do {                                                                 \
        if ((count) > (max)) {                                           \
            LOG_ERROR_(::paramgen::kCountBeyondSection, (key), (count)); \
            return ::paramgen::kFailed;                                  \
        }                                                                \
    } while (false)
