#pragma once

#include "adapters/qt/views/calendar_line_view.h"

class QComboBox;
class QDateTimeEdit;
class QLineEdit;
class QPlainTextEdit;

namespace opd::qt {

/// A text in one line.
class TextView final : public ControlView {
  public:
    TextView(ui::TextBox& box, QWidget* widget, QLabel* label);

    void show(ui::Aspect aspect) override;
    void selectContent() override;
    void insert(const QString& text) override;
    void placeCursor(const QPoint& point) override;
    QString fitted(const QString& text) const override;
    QString selection() const override;
    QString shownText() const override;

  private:
    ui::TextBox& m_box;
    QLineEdit* m_edit;
};

/// A text over several lines.
class MemoView final : public ControlView {
  public:
    MemoView(ui::TextBox& box, QWidget* widget, QLabel* label);

    void show(ui::Aspect aspect) override;
    void selectContent() override;
    void insert(const QString& text) override;
    void placeCursor(const QPoint& point) override;
    QString fitted(const QString& text) const override;
    QString selection() const override;
    QString shownText() const override;

  private:
    void follow();

    ui::TextBox& m_box;
    QPlainTextEdit* m_edit;
};

/// A date typed into a mask: the separators stand, eight digits are typed or a whole date is pasted. The box may change
/// its mask, and then be one for any text.
class MaskedView final : public CalendarLineView {
  public:
    MaskedView(ui::MaskedBox& box, QWidget* widget, QLabel* label);

    void show(ui::Aspect aspect) override;
    void insert(const QString& text) override;
    bool takes(char32_t character) override;
    void clickedInto() override;
    QString fitted(const QString& text) const override;
    QString selection() const override;
    QString shownText() const override;

  private:
    QString blanked(const QString& text) const;
    void offerCalendar();
    void showText();

    ui::MaskedBox& m_box;
};

/// A time of day.
class TimeView final : public ControlView {
  public:
    TimeView(ui::DatePicker& picker, QWidget* widget, QLabel* label);

    void show(ui::Aspect aspect) override;
    void selectContent() override;
    void insert(const QString& text) override;
    bool takes(char32_t character) override;
    QString shownText() const override;
    QPoint clickPoint() const override;

  private:
    ui::DatePicker& m_picker;
    QDateTimeEdit* m_edit;
};

class ComboView final : public ControlView {
  public:
    ComboView(ui::ComboBox& box, QWidget* widget, QLabel* label);

    void show(ui::Aspect aspect) override;
    QString shownText() const override;

  private:
    void follow(int index);
    void followMarks();
    void showItems();
    void showChoice();

    ui::ComboBox& m_box;
    QComboBox* m_list;
};

} // namespace opd::qt
