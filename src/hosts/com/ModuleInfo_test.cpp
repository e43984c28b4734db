#include "hosts/com/ComTest.h"

namespace korvane {
namespace {

class ModuleInformation : public ComTest {
 protected:
  /// A field as a person reads it.
  static std::string shown(IModuleInfo& info, long index) {
    Variant field;
    EXPECT_EQ(info.get_Item(index, &field), S_OK);
    if (field.vt == VT_DISPATCH) return "object";
    const bool flag = field.vt == VT_BOOL;
    EXPECT_EQ(VariantChangeType(&field, &field, 0, VT_BSTR), S_OK);
    return (flag ? "flag " : "") + fromBstr(field.bstrVal);
  }

  ComPtr<::ITharnPlugin> plugIn = create();
  ComPtr<IModuleInfo> info = infoOf(*plugIn.Get());
};

TEST_F(ModuleInformation, HasFourteenFieldsInOrder) {
  const std::vector<std::string> expected = {"{70014daa-4c46-11da-9507-00e17161165f}",
                                             "Matrix",
                                             "Matrix, Version 2.9.2",
                                             "The Korvane developers",
                                             "0",
                                             "flag -1",
                                             "2",
                                             "MatrixForm",
                                             "object",
                                             "0",
                                             "0",
                                             "flag -1",
                                             "flag -1",
                                             "object"};
  for (long index = 1; index <= 14; ++index)
    EXPECT_EQ(shown(*info.Get(), index), expected[static_cast<std::size_t>(index - 1)]) << index;
}

TEST_F(ModuleInformation, RefusesAnIndexOutsideItsFields) {
  for (const long index : {0L, 15L, -1L}) {
    Variant field;
    EXPECT_EQ(info->get_Item(index, &field), static_cast<HRESULT>(0x800A0009));
    EXPECT_EQ(errorText(), "Subscript out of range: field " + std::to_string(index) +
                               " of the module information");
  }
}

TEST_F(ModuleInformation, FieldsHaveNamesToo) {
  BSTR text = nullptr;
  EXPECT_EQ(info->get_Identity(&text), S_OK);
  EXPECT_EQ(taken(text), "{70014daa-4c46-11da-9507-00e17161165f}");
  EXPECT_EQ(info->get_ToolName(&text), S_OK);
  EXPECT_EQ(taken(text), "MatrixForm");
  long number = -1;
  EXPECT_EQ(info->get_Number7(&number), S_OK);
  EXPECT_EQ(number, 2);
  VARIANT_BOOL flag = VARIANT_FALSE;
  EXPECT_EQ(info->get_Flag13(&flag), S_OK);
  EXPECT_EQ(flag, VARIANT_TRUE);
  ComPtr<::ITharnTool> byName;
  EXPECT_EQ(info->get_Tool(&byName), S_OK);
  Variant byIndex;
  EXPECT_EQ(info->get_Item(9, &byIndex), S_OK);
  EXPECT_EQ(static_cast<IDispatch*>(byName.Get()), byIndex.pdispVal);
}

TEST_F(ModuleInformation, ListsItsMessagesInOrder) {
  ComPtr<IMessages> messages;
  ASSERT_EQ(info->get_Messages(&messages), S_OK);
  long count = 0;
  EXPECT_EQ(messages->get_Count(&count), S_OK);
  ASSERT_EQ(count, 4);
  const long expected[] = {9, 14, 35, 31};
  for (long index = 1; index <= count; ++index) {
    long message = 0;
    EXPECT_EQ(messages->get_Item(index, &message), S_OK);
    EXPECT_EQ(message, expected[index - 1]);
  }
  long message = 0;
  EXPECT_EQ(messages->get_Item(5, &message), static_cast<HRESULT>(0x800A0009));
  EXPECT_EQ(messages->get_Item(0, &message), static_cast<HRESULT>(0x800A0009));
}

TEST_F(ModuleInformation, MessagesCanBeAddedAndGoneThrough) {
  ComPtr<IMessages> messages;
  ComPtr<IUnknown> unknown;
  ComPtr<IEnumVARIANT> all;
  ASSERT_EQ(info->get_Messages(&messages), S_OK);
  EXPECT_EQ(messages->Add(77), S_OK);
  ASSERT_EQ(messages->get__NewEnum(&unknown), S_OK);
  ASSERT_EQ(unknown.As(&all), S_OK);
  VARIANT found[6];
  ULONG fetched = 0;
  EXPECT_EQ(all->Next(6, found, &fetched), S_FALSE);
  ASSERT_EQ(fetched, 5U);
  EXPECT_EQ(found[0].lVal, 9);
  EXPECT_EQ(found[4].lVal, 77);
  EXPECT_EQ(all->Next(1, found, nullptr), S_FALSE);
  EXPECT_EQ(all->Reset(), S_OK);
  EXPECT_EQ(all->Skip(4), S_OK);
  ComPtr<IEnumVARIANT> copy;
  EXPECT_EQ(all->Clone(&copy), S_OK);
  EXPECT_EQ(copy->Next(1, found, &fetched), S_OK);
  EXPECT_EQ(found[0].lVal, 77);
  EXPECT_EQ(all->Skip(2), S_FALSE);
  EXPECT_EQ(infoOf(*plugIn.Get())->get_Messages(&messages), S_OK);
  long count = 0;
  messages->get_Count(&count);
  EXPECT_EQ(count, 4) << "each module information has a collection of its own";
}

}  // namespace
}  // namespace korvane
