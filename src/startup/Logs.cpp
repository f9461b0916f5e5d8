#include "startup/Logs.h"

namespace zelkor {

void WriteErrorLog(std::int32_t /*level*/, std::string_view /*text*/, std::string_view /*routine*/) {}

void TraceLine(const std::string& /*text*/) {}

void WriteFaLog(RunContext& context, const std::string& memo) {
  context.dbZKData.Execute("delete from fa_log where mMemo='" + memo + "'");
  context.dbZKData.Execute("insert into Fa_log (dDate,sOperater,mMemo) values ('" +
                           context.gdOpDate.toText() + "','" + context.gstrUser + "','" + memo + "')");
}

}  // namespace zelkor
