/// Passing failures on. A loader stops at its first failing step, logs one ERROR record with the
/// step's label under its own name and line, and returns the code unchanged.
///
/// The macros of this file are the only ones that return from the function that uses them; their
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

/// Fills in the template `where` and stores the result in `key`. `where` is a template, or a table
/// or rows of one, whose node template is used. The arguments that follow are those that the
/// template takes: a prefix, and the indices of the array elements around it. When the result does
/// not fit, logs `label` and returns -1.
#define FILL_OR_RETURN AT_THIS_LINE_ FILL_OR_RETURN_
#define FILL_OR_RETURN_(key, label, where, ...)                                         \
    do {                                                                                \
        if (::paramgen::FillTemplate(&(key), where __VA_OPT__(, ) __VA_ARGS__) == -1) { \
            return ::paramgen::LogFailed(__func__, line_, label);                       \
        }                                                                               \
    } while (false)

/// Stores "node:item" in `key`. When it does not fit, logs "sprintf_s" and returns -1.
#define JOIN_OR_RETURN AT_THIS_LINE_ JOIN_OR_RETURN_
#define JOIN_OR_RETURN_(key, node, item)                                \
    do {                                                                \
        if ((key).Join(node, item) == -1) {                             \
            return ::paramgen::LogFailed(__func__, line_, "sprintf_s"); \
        }                                                               \
    } while (false)

/// Stores in `key` the full key of the row `field` for element `index`, under `node` unless the row
/// has a node of its own. When it does not fit, logs "sprintf_s" and returns -1.
#define FORMAT_KEY_OR_RETURN AT_THIS_LINE_ FORMAT_KEY_OR_RETURN_
#define FORMAT_KEY_OR_RETURN_(key, node, field, index)                     \
    do {                                                                   \
        if (::paramgen::FormatFullKey(&(key), node, field, index) == -1) { \
            return ::paramgen::LogFailed(__func__, line_, "sprintf_s");    \
        }                                                                  \
    } while (false)

/// Loads the rows of `fields` (a row, a slice or a table) into `record`, each looked up under
/// `node` in `module`. When a row fails, logs it under this function's name and line and returns
/// its code.
#define LOAD_OR_RETURN AT_THIS_LINE_ LOAD_OR_RETURN_
#define LOAD_OR_RETURN_(module, node, fields, record)                                \
    do {                                                                             \
        const ::paramgen::Status status_ =                                           \
            ::paramgen::LoadFields({__func__, line_}, module, node, fields, record); \
        if (status_ != ::paramgen::kOk) {                                            \
            return status_;                                                          \
        }                                                                            \
    } while (false)

/// Loads `rows` (a slice or a table) into `record`, looked up in `module` under the node of their
/// table, which takes the numbers that follow, at most two. When the node does not fit, logs
/// "sprintf_s" and returns -1.
#define LOAD_AT_OR_RETURN AT_THIS_LINE_ LOAD_AT_OR_RETURN_
#define LOAD_AT_OR_RETURN_(module, rows, record, ...)                            \
    do {                                                                         \
        const ::paramgen::Status status_ = ::paramgen::LoadRowsAt(               \
            {__func__, line_}, module, rows, record __VA_OPT__(, ) __VA_ARGS__); \
        if (status_ != ::paramgen::kOk) {                                        \
            return status_;                                                      \
        }                                                                        \
    } while (false)

/// Loads element `index` of the row `field` into `record`, as `LOAD_OR_RETURN` does.
#define LOAD_ELEMENT_OR_RETURN AT_THIS_LINE_ LOAD_ELEMENT_OR_RETURN_
#define LOAD_ELEMENT_OR_RETURN_(module, node, field, index, record)                       \
    do {                                                                                  \
        const ::paramgen::Status status_ =                                                \
            ::paramgen::LoadField({__func__, line_}, module, node, field, index, record); \
        if (status_ != ::paramgen::kOk) {                                                 \
            return status_;                                                               \
        }                                                                                 \
    } while (false)

// The same for functions that several loaders share: they log under the loader's name and line,
// which `site` holds.

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

/// Logs a null record and returns -1 when a loader's `record` is null. For loaders that use the
/// record before they load rows into it; the row macros above make the same check.
#define REQUIRE_RECORD_OR_RETURN AT_THIS_LINE_ REQUIRE_RECORD_OR_RETURN_
#define REQUIRE_RECORD_OR_RETURN_(record)                      \
    do {                                                       \
        if ((record) == nullptr) {                             \
            return ::paramgen::LogNullRecord(__func__, line_); \
        }                                                      \
    } while (false)

/// Logs `key` and `count` and returns -1 when `count` is above `max`, the number that the section
/// has room for.
#define REQUIRE_COUNT_OR_RETURN AT_THIS_LINE_ REQUIRE_COUNT_OR_RETURN_
#define REQUIRE_COUNT_OR_RETURN_(key, count, max)                        \
    do {                                                                 \
        if ((count) > (max)) {                                           \
            LOG_ERROR_(::paramgen::kCountBeyondSection, (key), (count)); \
            return ::paramgen::kFailed;                                  \
        }                                                                \
    } while (false)
