// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"
#include "elements/label.h"
#include "link/bench.h"

namespace zor {

/// major.minor.revision of the product.
[[nodiscard]] std::string productVersion();

/// The picture that greets at the start; a click takes it away.
class Splash : public Form {
  public:
    explicit Splash(Bench& ownBench);

    Button Picture1;
    Label lblVersion;

  protected:
    void unload() override;

  private:
    Bench& bench;
};

/// What the program is, and the way to the system's information tool.
class About : public Form {
  public:
    explicit About(Bench& ownBench);

    Element picIcon;
    Label lblTitle;
    Label lblVersion;
    Label lblDescription;
    Button cmdOK;
    Button cmdSysInfo;

  private:
    void cmdSysInfo_Click();

    Bench& bench;
};

/// The chips that the program knows.
class Products : public Form {
  public:
    explicit Products(Bench& ownBench);

    Label lblProducts;
    Label lblList;
    Button cmdOK;
};

/// A fixed picture of the receivers' data filter.
class DataFilterHelp : public Form {
  public:
    explicit DataFilterHelp(Bench& ownBench);

    Element Picture1;
    Button cmdClose;
};

} // namespace zor
