#pragma once

#include <map>
#include <string>
#include <vector>

#include "QZCAccountBook2.h"
#include "QZCAccountBookValidator.h"
#include "QZCKamokuCodeListCSV.h"
#include "QZCRegex.h"
#include "QZCValidateMediator.h"

// Checks one statements file: its lines against the check definition
// before the books are built, then every account of the books against the
// account code list.
class QZCValidateMediator2 : public QZCValidateMediator {
public:
    // Which tuples (repeating groups of accounts) are open at which layer.
    class QZCTupleChecker {
    public:
        enum TUPLE_CHECK_TYPE { TUPLE_OPEN = 1, TUPLE_CLOSED = 2 };

        bool add(int layer, const std::string& code);
        // Closes the tuples at this layer and deeper.
        void close(int layer);
        // Closes the tuples below this layer (none lies below the largest layer number).
        void closeDeeper(int layer);
        void clear(int layer, const std::string& code);
        bool isExistTuple(const std::string& code) const;
        bool isOpenType(const std::string& code) const;
        // 0 no state; 1 or 2 a tuple is open at the layer and the code is
        // open or closed; 3 no tuple at the layer but the code has a state.
        int getCheckType(int layer, const std::string& code) const;

    private:
        std::map<int, std::string> m_mapOpenLayers;
        std::map<std::string, TUPLE_CHECK_TYPE> m_mapStates;
    };

    explicit QZCValidateMediator2(const std::string& xbrlType);

    bool ConstructValidators() override;
    bool BuildValidItem(QZCDOMParser& parser) override;
    bool ExecFormatCheck(LineIterator first, LineIterator last) override;
    bool ExecLayerTypeCheck(const Line& line, bool& titlePending, int rowNo) override;
    bool ExecRequiredFormCheck(const Line& line, int rowNo, bool& titlePending) override;
    bool ExecSpecificCheck(LineIterator first, LineIterator last) override;

    // The second pass, over the layered items of every book.
    bool ExecCheckAfterLayered(const std::vector<QZCAccountBook2>& books, const QZCKamokuCodeListCSV& codeList);
    bool ExecCheckPerItem(const QZCKamokuCodeListCSV& codeList, const std::string& kindCode,
                          const QZCAccountItem2& item);
    bool checkOverlapSBJCode(const QZCKamokuCodeListCSV& codeList, const std::string& kindCode,
                             const QZCAccountItem2& item);
    bool checkValidStandardSubject(const QZCKamokuCodeListCSV& codeList, const std::string& kindCode,
                                   const QZCAccountItem2& item, int rowNo);
    bool checkValidStandardSubjectValue(const std::vector<std::string>& row, const std::string& itemType,
                                        const std::string& content, bool isAbstract, int rowNo);
    bool checkValidStandardSubjectRequiredItem(const QZCKamokuCodeListCSV& codeList, const std::string& kindCode,
                                               const QZCAccountItem2& item, int rowNo);
    bool checkValidOriginalSubject(const QZCAccountItem2& item, int rowNo);
    static bool isMoneyRange(const std::string& value);
    static void setErrForChildren(const QZCAccountItem2& item, int column, const char* code);

private:
    // Name and repeated group of a standard account: the walk of its members
    // goes on unless the group stops it.
    enum class GroupState { Fine, NameDiffers, Stop };
    GroupState checkNameAndGroup(const QZCAccountItem2& item, int rowNo);
    // The account's children against the members the code list gives it, in
    // order; a required member missing is an error of the account.
    bool checkMembers(const QZCKamokuCodeListCSV& codeList, const std::string& kindCode, const QZCAccountItem2& item,
                      const std::vector<CHILD_ITEM>& members, int rowNo);
    QZCAccountBookValidator& validator(const char* lineType) { return m_mapValidators[lineType]; }
    // A monetary value: the number pattern, then the money range.
    bool checkMoney(const std::string& value, int rowNo);

    std::string m_strXbrlType;
    bool m_bExistTitle = false;
    const QZCRegex& m_numberPattern;
    const QZCRegex& m_codePattern;
    std::map<std::string, std::string> m_mapBookCodes;
    std::map<std::string, std::string> m_mapStandardNames;
    QZCTupleChecker m_tupleChecker;
    std::map<std::string, QZCAccountBookValidator> m_mapValidators;
};
