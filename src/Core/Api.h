#pragma once

// The library is built with hidden visibility; only names marked with this macro form
// the installed API. On ELF, exporting and importing are the same.
#define TERVAN_API __attribute__((visibility("default")))

// Marks each of the library's constant values (texts, ratios) whose initialiser runs at
// load: all of them are built before any unmarked initialiser, so the registry's tables,
// built while the library loads, may read any of them whatever order the objects are
// linked in.
#define TERVAN_CONSTANT __attribute__((init_priority(200)))
