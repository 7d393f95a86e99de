#pragma once

namespace vorlent {

/// Of the format; a newer one has a higher number.
constexpr int RecordingFormat = 1;

/// The most that the content of a page, or a file's, can be.
constexpr unsigned MostOfAPage_bytes = 64U << 20;

constexpr auto RecordingTables =
    "CREATE TABLE recording (key TEXT PRIMARY KEY, value) WITHOUT ROWID;"
    "CREATE TABLE file (path TEXT PRIMARY KEY, size INTEGER, content BLOB);"
    "CREATE TABLE request (id INTEGER PRIMARY KEY, operations TEXT);"
    "CREATE TABLE page (number INTEGER PRIMARY KEY, first_us INTEGER, last_us INTEGER,"
    " whole INTEGER, events INTEGER, content BLOB);"
    "CREATE TABLE line (time_us INTEGER, kind TEXT, who TEXT, text TEXT);"
    "CREATE TABLE written (time_us INTEGER, offset INTEGER, bytes BLOB);";

}  // namespace vorlent
