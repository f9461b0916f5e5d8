#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zelkor {

class PostgreSqlLink;

/// A statement that the server is told once, with its first use, and then only named. Whoever asks the link
/// for the same text meanwhile shares it.
struct ServerStatement {
  ServerStatement(std::shared_ptr<PostgreSqlLink> session, std::string_view text);
  ServerStatement(const ServerStatement&) = delete;
  ServerStatement& operator=(const ServerStatement&) = delete;
  ~ServerStatement();

  std::shared_ptr<PostgreSqlLink> link;
  std::string sql;
  std::vector<unsigned> types;  // of the parameters, as the server numbers them: all texts
  std::string name;
  bool known = false;  // the server has been told, or is being told in the trip under way
};

}  // namespace zelkor
