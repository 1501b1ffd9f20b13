#pragma once
// The file dialog's table as a Swedish reader expects it, whatever the desktop's language.

#include <QIdentityProxyModel>

/// Over the toolkit's model of the file system: sizes in kB and MB with a decimal comma, days as
/// "2026-11-21 10:10", kinds as "Mapp" and "mdb-fil". Sorting stays the model's own.
class FileTable final : public QIdentityProxyModel {
    Q_OBJECT

  public:
    using QIdentityProxyModel::QIdentityProxyModel;

    QVariant data(const QModelIndex& index, int role) const override;
};
