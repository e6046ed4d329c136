#pragma once
// CHelloWnd: the welcome pane that fills the editor's place before a song is
// open: an animation, a hint, and a drop target for any media file (the
// first dropped file with sound goes out as openWave). A strip with a
// "Learn More" button that opens the product's store page is built hidden.
// Owns its children through Qt parents; GUI thread.

#include <QString>
#include <QWidget>

class QLabel;
class QMovie;
class QPushButton;

class CHelloWnd : public QWidget
{
    Q_OBJECT

public:
    explicit CHelloWnd(QWidget* parent = nullptr);

    void retranslate();

signals:
    void openWave(QString path);

public slots:
    void learnMore();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // Shows the movie's current frame, drawn at the screen's resolution.
    void showFrame();

    QLabel* m_animationLabel;
    QMovie* m_movie = nullptr;
    QLabel* m_hintLabel = nullptr;
    QWidget* m_advertisement = nullptr;
    QPushButton* m_advertisementBtn = nullptr;
};
