#include "vouchers/ClsBLLPZType.h"

#include "base/Conversion.h"
#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {

Recordset ClsBLLPZType::GetAllDsign() {
  return query("GetAllDsign", "Select * From DSign Order by isignseq");
}

bool ClsBLLPZType::UpdateDsign(std::int32_t& I_ID, const DsignValues& values) {
  return attempt("UpdateDsign", false, [&] {
    const bool added = I_ID == kNewDsign;
    zkData().Execute(added ? sql("Insert Into Dsign (CSign,ISignSeq,CText,IType) Values('", values.sign, "',",
                                 values.sequence, ",'", values.name, "',", values.type, ")")
                           : sql("Update Dsign Set csign='", values.sign, "',isignseq=", values.sequence,
                                 ",ctext='", values.name, "',itype=", values.type, " Where I_Id=", I_ID));
    if (added) I_ID = GetDsignID(values.sign);
    return true;
  });
}

std::int32_t ClsBLLPZType::GetDsignID(std::string_view sign) {
  return attempt("GetDsignID", std::int32_t{0}, [&] {
    const Recordset type = zkData().OpenRecordset(sql("Select * From Dsign Where cSign='", sign, "'"));
    return type.Eof() ? 0 : CLng(type.Fields("I_ID"));
  });
}

bool ClsBLLPZType::UpdateDsigns(std::string_view sign, const std::vector<std::string>& codes) {
  return attempt("UpdateDsigns", false, [&] {
    StatementGroup group(zkData());
    group.execute(sql("Delete * From Dsigns Where cSign='", sign, "'"));
    for (const std::string& code : codes) {
      group.execute(sql("Insert Into Dsigns (csign,ccode) Values('", sign, "','", code, "')"));
    }
    group.run();
    return true;
  });
}

bool ClsBLLPZType::DeleteDsign(std::int32_t I_ID) {
  return attempt("DeleteDsign", false, [&] {
    const Recordset type = zkData().OpenRecordset(sql("Select * From Dsign Where I_Id=", I_ID));
    if (!type.Eof()) {
      zkData().Execute(sql("Delete * From Dsigns Where cSign='", type.TextOrEmpty("csign"), "'"));
    }
    zkData().Execute(sql("Delete * From Dsign Where I_Id=", I_ID));
    return true;
  });
}

bool ClsBLLPZType::UpdateDsignSeq(std::int32_t I_ID, std::int32_t sequence) {
  return attempt("UpdateDsignSeq", false, [&] {
    zkData().Execute(sql("Update Dsign Set isignseq=", sequence, " Where i_id=", I_ID));
    return true;
  });
}

std::string ClsBLLPZType::GetDsignLimitCodes(std::string_view sign) {
  return attempt("GetDsignLimitCodes", std::string(), [&] {
    std::string joined;
    Recordset codes = zkData().OpenRecordset(sql("Select * From Dsigns Where CSign='", sign, "'"));
    for (; !codes.Eof(); codes.MoveNext()) {
      if (!joined.empty()) joined += ',';
      joined += codes.TextOrEmpty("ccode");
    }
    return joined;
  });
}

Recordset ClsBLLPZType::GetAllCustomClass() {
  return query("GetAllCustomClass", "Select * From customerclass Order by iCCGrade,cCCCode");
}

Recordset ClsBLLPZType::GetAllDistrictClass() {
  return query("GetAllDistrictClass", "Select * From Districtclass Order by iDCGrade,cDCCode");
}

Recordset ClsBLLPZType::GetAllGradedef() {
  return query("GetAllGradedef", "Select * From gradedef ");
}

Recordset ClsBLLPZType::GetAllVendorClass() {
  return query("GetAllVendorClass", "Select * From VendorClass Order by iVCGrade,cVCCode");
}

}  // namespace zelkor
