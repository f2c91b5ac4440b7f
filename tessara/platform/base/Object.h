#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/Types.h"

class CArchive;
class CDumpContext;
class CObject;

/// Describes one class at run time: its name, its base and, where objects can be made by name, how.
///
/// Records are static and live as long as the program; compare them by address.
struct TESSARA_API CRuntimeClass {
    const char* m_lpszClassName;
    int m_nObjectSize;               ///< bytes
    UINT m_wSchema;                  ///< version of the archive format; 0xFFFF: not written to archives
    CObject* (*m_pfnCreateObject)(); ///< null when objects cannot be made by class name
    CRuntimeClass* m_pBaseClass;     ///< null for CObject itself

    /// A new object, owned by the caller, or null when the class has no creation function.
    CObject* CreateObject() const;
    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;
};

/// The root of the library's classes: run-time class information, archive support and diagnostics.
///
/// Objects are not copied unless a class says how.
class TESSARA_API CObject {
public:
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    /// Writes the object to, or reads it from, an archive. The default does nothing.
    virtual void Serialize(CArchive& ar);
    /// Throws CInvalidArgException when the object's invariants do not hold. The default accepts everything.
    virtual void AssertValid() const;
    /// Writes a line that names the object's class.
    virtual void Dump(CDumpContext& dc) const;

    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    BOOL IsKindOf(const CRuntimeClass* pClass) const;
    /// Nonzero when the class has an archive schema.
    BOOL IsSerializable() const;

    static const CRuntimeClass classCObject;

protected:
    CObject() = default;
};

#define RUNTIME_CLASS(class_name) (const_cast<CRuntimeClass*>(&class_name::class##class_name))

/// In a class: gives it run-time class information.
#define DECLARE_DYNAMIC(class_name)                                                                          \
public:                                                                                                      \
    static const CRuntimeClass class##class_name;                                                            \
    CRuntimeClass* GetRuntimeClass() const override;

/// In a class: run-time class information and creation by name; needs a default constructor.
#define DECLARE_DYNCREATE(class_name)                                                                        \
    DECLARE_DYNAMIC(class_name)                                                                              \
    static CObject* CreateObject();

#define TESSARA_IMPLEMENT_CLASS(class_name, base_name, schema, creator)                                      \
    const CRuntimeClass class_name::class##class_name = {#class_name, sizeof(class_name), schema, creator,   \
                                                         RUNTIME_CLASS(base_name)};                          \
    CRuntimeClass* class_name::GetRuntimeClass() const {                                                     \
        return RUNTIME_CLASS(class_name);                                                                    \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_name)                                                             \
    TESSARA_IMPLEMENT_CLASS(class_name, base_name, 0xFFFF, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_name)                                                           \
    CObject* class_name::CreateObject() {                                                                    \
        return new class_name;                                                                               \
    }                                                                                                        \
    TESSARA_IMPLEMENT_CLASS(class_name, base_name, 0xFFFF, &class_name::CreateObject)
