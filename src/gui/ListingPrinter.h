// SPDX-License-Identifier: Apache-2.0
// Prints the engine's listings: one printed line per file line in an 8-point
// fixed-pitch font, half-inch margins, and on every page a header with the
// listing's file name, its page number and the date. The listings of one
// Print command form one print job (one PDF file when printing to a file);
// each starts on a page of its own.
#pragma once

#include "core/ports.h"

#include <QPainter>

class QPrinter;

namespace tw {

class ListingPrinter {
  public:
    explicit ListingPrinter(QPrinter& printer);
    ~ListingPrinter();
    ListingPrinter(const ListingPrinter&) = delete;
    ListingPrinter& operator=(const ListingPrinter&) = delete;

    // False when the printer could not start the job.
    bool print(const PrintDocument& doc);
    // Ends the job; false when the printer refused it.
    bool finish();

  private:
    void header(const QString& file, int page);

    QPrinter& printer_;
    QPainter painter_;
    bool started_ = false;
    bool failed_ = false;
};

// One listing as a job of its own.
bool printListing(QPrinter& printer, const PrintDocument& doc);

} // namespace tw
