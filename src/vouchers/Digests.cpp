#include "vouchers/Digests.h"

#include "base/Text.h"
#include "store/engine/Statement.h"

namespace zelkor {

std::string_view messageOf(DigestRefusal refusal) {
  switch (refusal) {
    case DigestRefusal::NewWithoutCode:
      return "摘要编码必须输入!";
    case DigestRefusal::NewCodeTaken:
      return "摘要编码不能重复！";
    case DigestRefusal::CodeTaken:
      return "摘要编号不能重复！";
    case DigestRefusal::WithoutText:
      return "摘要内容必须输入！";
    case DigestRefusal::UnknownSubject:
      return "相关科目输入错误！";
  }
  return {};
}

Digests::Digests(const Database& data)
    : data_(data), digests_(data_.OpenRecordset("select * from gl_bdigest order by CID")) {}

TextGrid Digests::grid() {
  TextGrid grid;
  grid.setHeader("摘要编码|摘要内容|相关科目");
  digests_.Requery();
  for (; !digests_.Eof(); digests_.MoveNext()) {
    grid.addRow({digests_.TextOrEmpty("cid"), digests_.TextOrEmpty("ctext"), digests_.TextOrEmpty("ccode")});
  }
  return grid;
}

bool Digests::hasCode(std::string_view code) {
  digests_.Requery();
  digests_.FindFirst(sql("cid='", code, "'"));
  return !digests_.NoMatch();
}

bool Digests::IsExistCode(std::string_view subject) {
  return !data_.OpenRecordset(sql("Select * From Code Where CCode='", subject, "'")).Eof();
}

std::optional<DigestRefusal> Digests::refusalOfNew(const Digest& digest) {
  if (digest.code.empty()) return DigestRefusal::NewWithoutCode;
  if (hasCode(digest.code)) return DigestRefusal::NewCodeTaken;
  if (digest.text.empty()) return DigestRefusal::WithoutText;
  return std::nullopt;
}

std::optional<DigestRefusal> Digests::add(const Digest& digest) {
  if (const auto refusal = refusalOfNew(digest)) return refusal;
  Recordset row = data_.OpenRecordset("Select Top 1 * From gl_bdigest Order by I_ID DESC");
  row.AddNew();
  row.Collect("cid", digest.code);
  row.Collect("ctext", digest.text);
  if (!digest.subject.empty()) row.Collect("ccode", digest.subject);
  row.Update();
  return std::nullopt;
}

std::optional<DigestRefusal> Digests::UpdateDigest(std::string_view storedCode, const Digest& digest) {
  if (LCase(digest.code) != LCase(storedCode) && hasCode(digest.code)) return DigestRefusal::CodeTaken;
  if (digest.text.empty()) return DigestRefusal::WithoutText;
  if (!digest.subject.empty() && !IsExistCode(digest.subject)) return DigestRefusal::UnknownSubject;
  Recordset row = data_.OpenRecordset(sql("Select * From GL_BDigest Where CID='", storedCode, "'"));
  if (row.Eof()) return std::nullopt;
  row.Edit();
  row.Collect("CID", digest.code);
  row.Collect("ctext", digest.text);
  if (!digest.subject.empty()) row.Collect("CCode", digest.subject);
  row.Update();
  return std::nullopt;
}

void Digests::remove(std::string_view code) {
  if (!hasCode(code)) return;
  digests_.Delete();
}

}  // namespace zelkor
