#pragma once

#include <QProgressBar>

/// A progress bar that is empty while there is nothing to go through, where the toolkit's would move for ever and keep
/// the processor busy.
class StillProgressBar : public QProgressBar
{
    Q_OBJECT

public:
    explicit StillProgressBar(QWidget *parent = nullptr);
    ~StillProgressBar() override;
    Q_DISABLE_COPY_MOVE(StillProgressBar)

protected:
    void initStyleOption(QStyleOptionProgressBar *option) const override;
};
