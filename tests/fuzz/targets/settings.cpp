// The stand-alone host's settings: what was saved last under a name is what comes back, whatever
// stands in it.
#include <QString>
#include <QStringDecoder>
#include <memory>
#include <string>
#include <vector>

#include <vexnumkr/adapters.h>
#include <vexnumkr/error.h>

#include "app/components/settings_store.h"
#include "app/sql.h"
#include "fuzz/support/application.h"
#include "fuzz/support/input.h"
#include "fuzz/support/property.h"

namespace vexnumkr::fuzz {
namespace {

bool isPlain(const std::string& text) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString decoded = decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
  return !decoder.hasError() && text.find('\0') == std::string::npos;
}

bool sameName(const std::string& a, const std::string& b) {
  return QString::fromStdString(a).compare(QString::fromStdString(b), Qt::CaseInsensitive) == 0;
}

struct Setting {
  std::string section;
  std::string key;
  std::string profile;
  std::string value;

  bool isPlain() const {
    return fuzz::isPlain(section) && fuzz::isPlain(key) && fuzz::isPlain(profile) &&
           fuzz::isPlain(value);
  }
};

class Attack {
 public:
  Attack() : connection_(openQtSqlConnection("Driver=QSQLITE;Database=:memory:")) {
    store_.Init(0, *connection_);
    store_.SaveSetting("fremd", "bleibt", "wie es ist", "Standard");
  }

  void run(Input& input) {
    saved_ = {{"fremd", "bleibt", "Standard", "wie es ist"}};
    connection_->BeginTrans();
    for (int calls = 0; calls < 4 && !input.isAtEnd(); ++calls) {
      const bool saves = input.flag();
      const Setting setting{input.text(), input.text(), input.text(), input.text()};
      try {
        saves ? save(setting) : get(setting);
      } catch (const Error&) {
        require(!setting.isPlain(), "only what is no text is refused",
                {setting.section, setting.key, setting.profile, setting.value});
      }
    }
    get({"fremd", "bleibt", "Standard", ""});
    std::int32_t rows = 0;
    app::forEachRow(*connection_, "SELECT Wert FROM Einstellungen",
                    [&rows](const Recordset&) { ++rows; });
    require(rows == static_cast<std::int32_t>(saved_.size()), "there is a row for each setting");
    connection_->RollbackTrans();
  }

 private:
  Setting* find(const Setting& wanted) {
    for (Setting& setting : saved_)
      if (sameName(setting.section, wanted.section) && sameName(setting.key, wanted.key) &&
          setting.profile == wanted.profile)
        return &setting;
    return nullptr;
  }

  void save(const Setting& setting) {
    store_.SaveSetting(setting.section, setting.key, setting.value, setting.profile);
    if (Setting* const known = find(setting))
      known->value = setting.value;
    else
      saved_.push_back(setting);
  }

  void get(const Setting& setting) {
    std::string value;
    store_.GetSetting(setting.section, setting.key, value, setting.profile, "Standard",
                      setting.value);
    const Setting* const known = find(setting);
    require(value == (known == nullptr ? setting : *known).value, "what was saved comes back",
            {setting.section, setting.key, setting.profile, value});
  }

  std::shared_ptr<Connection> connection_;
  app::TableSettings store_;
  std::vector<Setting> saved_;
};

}  // namespace
}  // namespace vexnumkr::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vexnumkr::fuzz;
  needApplication();
  static Attack attack;
  Input input(data, size);
  attack.run(input);
  return 0;
}
