#include "adapters/qtsql/opening/servers.h"

namespace vexnumkr::qtsql {

std::vector<std::size_t> Servers::inOrder() const {
  const std::size_t first = inUse_;
  std::vector<std::size_t> order;
  for (std::size_t i = 0; i < addresses_.size(); ++i)
    order.push_back((first + i) % addresses_.size());
  return order;
}

std::string Servers::name(std::size_t server) const {
  const ServerAddress& address = addresses_[server];
  return address.port == 0 ? address.server : address.server + ':' + std::to_string(address.port);
}

}  // namespace vexnumkr::qtsql
