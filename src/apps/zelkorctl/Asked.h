#pragma once

#include <string>
#include <vector>

#include "store/accountset/AccountSet.h"

namespace zelkor {

/// What a command line asks for: the values of its options, or what they are without them.
struct Asked {
  // Which account set a job works in: an argument string, or a folder or data file with what goes with it.
  std::string arguments;
  std::string set;
  std::string date;
  std::string user;
  std::string today;
  int runType = 0;

  std::string place;
  std::string jobs;
  std::vector<std::string> words;

  std::string directory;
  std::string file;
  std::string statement;
  std::string engine = "sqlite";
  bool json = false;
  bool csv = false;

  std::string account = AccountSetOptions().account;
  int year = AccountSetOptions().year;
  int month = AccountSetOptions().month;
  bool sample = false;
  std::string name;
  std::string unit;
  std::string manager;
  std::string server;

  std::string target;
  std::string schema;
  std::string charset;
  bool check = false;

  std::string to;
  std::string keep;
  std::string label;
  std::string backup;
  bool renamed = false;

  int newType = 1;
  std::string refused;
  bool progress = false;
  std::string answers;
  bool yes = false;
  bool preview = false;

  int months = 12;
  std::string with;
  std::string by;

  bool merge = false;
  std::string subjects;
  std::string sign;
  std::string voucher;

  std::string report;
  std::vector<std::string> conditions;
  std::string format = "text";
  std::string out;
  std::string page = "a4-landscape";
  bool money = false;
  bool bom = false;
  bool all = false;
  bool force = false;
};

}  // namespace zelkor
