#include "store/catalogue/CatalogueNotation.h"

// The hand-over to the general ledger and the suite's own tables: what this module's statements name of them,
// and what each obviously needs.

namespace zelkor::catalogue {

std::vector<TableDef> ledgerTables() {
  return {
      suiteTable("fa_ZWVouchers", R"(
        i_id:counter coutaccset(20) ioutyear coutsysname(10) coutsysver(10) doutbilldate ioutperiod coutsign(20)
        coutno_id(30) inid doutdate coutbillsign(20) coutid(30)# idoc cbill cdigest(255) ccode(40) md mc md_f mc_f
        nfrat:double cdept_id(255) citem_id(60) citem_class(20) ccodecontrol(20) bvouchedit bvouchAddordele
        bvouchmoneyhold bvalueedit bcodeedit bPCSedit bDeptedit bItemedit bCusSupInput cDefine[1..10](60))",
                 {"ioutperiod coutsign", "coutsign coutno_id ioutperiod", "cDefine9", "coutid"}),
      // A voucher's line counts as not booked until the ledger says otherwise.
      suiteTable("GL_accvouch", R"(
        i_id:counter iperiod csign(10) isignseq ino_id inid dbill_date idoc cbill ccheck cbook ibook=0 ccashier
        iflag cdigest(255) ccode(40) md mc coutsign(30) coutno_id(30) doutbilldate ioutperiod
        ccodecontrol(20))",
                 {"iperiod ino_id", "coutno_id"}),
      suiteTable("GL_accsum", R"(
        i_id:counter ccode(40) cexch_name(20) iperiod cbegind_c(10) cbegind_c_engl(10) mb md mc cendd_c(10)
        cendd_c_engl(10) me)",
                 {"ccode"}),
      suiteTable("GL_mend", "iperiod bflag bflag_FA"),
      suiteTable("GL_bdigest", "I_ID:counter cid(20) ctext(255) ccode(40)"),
      suiteTable("GL_MCodeUsed", "CUser(60):text CCode(40):text"),
      // The sign is no key: a preset that is chosen twice adds its signs twice.
      suiteTable("Dsign", "I_ID:counter csign(10) isignseq ctext(60) itype"),
      suiteTable("Dsigns", "csign(10) ccode(40)"),
  };
}

std::vector<TableDef> suiteArchiveTables() {
  constexpr std::string_view projects = "citemcode(60) citemname(100) bclose citemccode(60) cDirection(20)";
  return {
      suiteTable("code", R"(
        ccode(40) ccode_name(100) cclass(20) igrade bproperty bperson bcus bsup bdept bitem br be bend)",
                 {"unique ccode"}),
      suiteTable("department", R"(
        cDepCode(20) cDepName(100) iDepGrade cDepPerson(20) cDepProp(60) cDepPhone(60) cDepAddress(200)
        cDepMemo(255) bDepEnd)",
                 {"unique cDepCode"}),
      suiteTable("Person", "cPersonCode(20) cPersonName(60) cDepCode(20)"),
      suiteTable("GradeDef", "KeyWord(40):text CodingRule(40):text", {"unique KeyWord"}),
      suiteTable("ForeignCurrency", "I_Id:counter cExch_Name(20) cExch_Code(10) bcal idec nerror:double"),
      suiteTable("Exch", "I_Id:counter cExch_Name(20) iperiod nflat:double"),
      suiteTable("SettleStyle", "cSSCode(20) cSSName(60) bSSFlag iSSGrade bSSEnd"),
      // A class of projects names the table of its groups; its projects are in a table whose name ends in
      // the number of the class.
      suiteTable("fitem", "I_ID:counter citem_class(20) citem_name(60) cClasstable(60)"),
      suiteTable("fitemss", "citem_class(20) " + std::string(projects)),
      suiteTable("fitemss00", projects),
      suiteTable("fitemss00class", "cItemCcode(60) cItemCname(100)"),
      suiteTable("customerclass", "cCCCode(20) cCCName(60) iCCGrade bCCEnd"),
      suiteTable("VendorClass", "cVCCode(20) cVCName(60) iVCGrade bVCEnd"),
      suiteTable("Districtclass", "cDCCode(20) cDCName(60) iDCGrade bDCEnd"),
      suiteTable("RPT_ITMDEF", "tablename(60):text fieldname(60):text"),
  };
}

std::vector<TableDef> systemFileTables() {
  return {
      suiteTable("za_account", R"(
        cAcc_id(20) cAcc_Name(100) cUnitName(100) cCurName(20) cAcc_Master(60) iYear iMonth)",
                 {"unique cAcc_id"}),
      suiteTable("ZA_Period", "cAcc_id(20) iyear iId dBegin dEnd", {"unique cAcc_id iyear iId"}),
  };
}

}  // namespace zelkor::catalogue
