// SPDX-License-Identifier: MIT
// The members of a record set that this ADO does not have: editing, filtering, bookmarks, paging.
#pragma once

#include "ado/objects/ado_object.h"

namespace vndesk::ado {

template <class Derived>
class RecordsetRefused
    : public AdoObject<Derived, _Recordset,
                       InterfaceList<Recordset21, Recordset20, Recordset15, _ADO>> {
public:
    ADO_REFUSED(get_Properties, Properties**)
    ADO_REFUSED(get_AbsolutePosition, PositionEnum_Param*)
    ADO_REFUSED(put_AbsolutePosition, PositionEnum_Param)
    ADO_REFUSED(get_Bookmark, VARIANT*)
    ADO_REFUSED(put_Bookmark, VARIANT)
    ADO_REFUSED(get_CacheSize, LONG*)
    ADO_REFUSED(put_CacheSize, LONG)
    ADO_REFUSED(get_MaxRecords, ADO_LONGPTR*)
    ADO_REFUSED(put_MaxRecords, ADO_LONGPTR)
    ADO_REFUSED(AddNew, VARIANT, VARIANT)
    ADO_REFUSED(CancelUpdate)
    ADO_REFUSED(Delete, AffectEnum)
    ADO_REFUSED(Move, ADO_LONGPTR, VARIANT)
    ADO_REFUSED(Requery, LONG)
    ADO_REFUSED(_xResync, AffectEnum)
    ADO_REFUSED(Update, VARIANT, VARIANT)
    ADO_REFUSED(get_AbsolutePage, PositionEnum_Param*)
    ADO_REFUSED(put_AbsolutePage, PositionEnum_Param)
    ADO_REFUSED(get_EditMode, EditModeEnum*)
    ADO_REFUSED(get_Filter, VARIANT*)
    ADO_REFUSED(put_Filter, VARIANT)
    ADO_REFUSED(get_PageCount, ADO_LONGPTR*)
    ADO_REFUSED(get_PageSize, LONG*)
    ADO_REFUSED(put_PageSize, LONG)
    ADO_REFUSED(get_Sort, BSTR*)
    ADO_REFUSED(put_Sort, BSTR)
    ADO_REFUSED(get_Status, LONG*)
    ADO_REFUSED(_xClone, _Recordset**)
    ADO_REFUSED(UpdateBatch, AffectEnum)
    ADO_REFUSED(CancelBatch, AffectEnum)
    ADO_REFUSED(get_CursorLocation, CursorLocationEnum*)
    ADO_REFUSED(put_CursorLocation, CursorLocationEnum)
    ADO_REFUSED(NextRecordset, VARIANT*, _Recordset**)
    ADO_REFUSED(Supports, CursorOptionEnum, VARIANT_BOOL*)
    ADO_REFUSED(get_Collect, VARIANT, VARIANT*)
    ADO_REFUSED(put_Collect, VARIANT, VARIANT)
    ADO_REFUSED(get_MarshalOptions, MarshalOptionsEnum*)
    ADO_REFUSED(put_MarshalOptions, MarshalOptionsEnum)
    ADO_REFUSED(Find, BSTR, LONG, SearchDirectionEnum, VARIANT)
    ADO_REFUSED(Cancel)
    ADO_REFUSED(get_DataSource, IUnknown**)
    ADO_REFUSED(putref_DataSource, IUnknown*)
    ADO_REFUSED(_xSave, BSTR, PersistFormatEnum)
    ADO_REFUSED(get_ActiveCommand, IDispatch**)
    ADO_REFUSED(put_StayInSync, VARIANT_BOOL)
    ADO_REFUSED(get_StayInSync, VARIANT_BOOL*)
    ADO_REFUSED(GetString, StringFormatEnum, LONG, BSTR, BSTR, BSTR, BSTR*)
    ADO_REFUSED(get_DataMember, BSTR*)
    ADO_REFUSED(put_DataMember, BSTR)
    ADO_REFUSED(CompareBookmarks, VARIANT, VARIANT, CompareEnum*)
    ADO_REFUSED(Clone, LockTypeEnum, _Recordset**)
    ADO_REFUSED(Resync, AffectEnum, ResyncEnum)
    ADO_REFUSED(Seek, VARIANT, SeekEnum)
    ADO_REFUSED(put_Index, BSTR)
    ADO_REFUSED(get_Index, BSTR*)
    ADO_REFUSED(Save, VARIANT, PersistFormatEnum)
};

} // namespace vndesk::ado
