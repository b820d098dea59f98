<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU">
<context>
    <name>AbstractChoiceDialog</name>
    <message>
        <source>Choice</source>
        <translation>Выбор</translation>
    </message>
    <message>
        <source>Dialog buttons</source>
        <translation>Кнопки диалога</translation>
    </message>
    <message>
        <source>Accept the choice</source>
        <translation>Принять выбор</translation>
    </message>
    <message>
        <source>Discard the choice</source>
        <translation>Отменить выбор</translation>
    </message>
</context>
<context>
    <name>ChoiceWidget</name>
    <message>
        <source>Choice</source>
        <translation>Выбор</translation>
    </message>
    <message>
        <source>Show only the names that contain this text</source>
        <translation>Показывать только имена, содержащие этот текст</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Фильтр</translation>
    </message>
    <message>
        <source>&amp;Available</source>
        <translation>&amp;Доступные</translation>
    </message>
    <message>
        <source>C&amp;hosen</source>
        <translation>&amp;Выбранные</translation>
    </message>
    <message>
        <source>Available names</source>
        <translation>Доступные имена</translation>
    </message>
    <message>
        <source>Tick a name to choose it</source>
        <translation>Отметьте имя, чтобы выбрать его</translation>
    </message>
    <message>
        <source>Chosen names</source>
        <translation>Выбранные имена</translation>
    </message>
    <message>
        <source>Untick a name to give it up</source>
        <translation>Снимите отметку, чтобы отказаться от имени</translation>
    </message>
</context>
<context>
    <name>ConfRootTreeNode</name>
    <message>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Значение</translation>
    </message>
</context>
<context>
    <name>ControlServiceTask</name>
    <message>
        <source>Failed to execute command &quot;%1 %2&quot;</source>
        <translation>Не удалось выполнить команду &quot;%1 %2&quot;</translation>
    </message>
</context>
<context>
    <name>DummyTask</name>
    <message>
        <source>Dummy task</source>
        <translation>Пробная задача</translation>
    </message>
    <message>
        <source>ERROR!!!
ERROR!!!
ERROR!!!
ERROR!!!
</source>
        <translation>ОШИБКА!!!
ОШИБКА!!!
ОШИБКА!!!
ОШИБКА!!!
</translation>
    </message>
</context>
<context>
    <name>Element</name>
    <message>
        <source>Do you really want to remove this element?</source>
        <translation>Вы действительно хотите удалить этот элемент?</translation>
    </message>
</context>
<context>
    <name>ElementRootTreeNode</name>
    <message>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
</context>
<context>
    <name>ElementWidgetContainer2</name>
    <message>
        <source>Element</source>
        <translation>Элемент</translation>
    </message>
    <message>
        <source>Element views</source>
        <translation>Представления элемента</translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation>Несохранённые изменения</translation>
    </message>
    <message>
        <source>Changes not saved!
Continue without saving?</source>
        <translation>Изменения не сохранены!
Продолжить без сохранения?</translation>
    </message>
</context>
<context>
    <name>ElementsElementWidget</name>
    <message>
        <source>Form</source>
        <translation>Форма</translation>
    </message>
    <message>
        <source>Elements</source>
        <translation>Элементы</translation>
    </message>
    <message>
        <source>Pattern type</source>
        <translation>Тип шаблона</translation>
    </message>
    <message>
        <source>Wildcard</source>
        <translation>Подстановочные знаки</translation>
    </message>
    <message>
        <source>RegExp</source>
        <comment>Regular expression</comment>
        <translation>Регулярное выражение</translation>
    </message>
    <message>
        <source>Fixed string</source>
        <comment>Fixed String</comment>
        <translation>Фиксированная строка</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>Шаблон</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Фильтр</translation>
    </message>
</context>
<context>
    <name>ExportHtmlTask</name>
    <message>
        <source>Export to HTML</source>
        <translation>Экспорт в HTML</translation>
    </message>
    <message>
        <source>&quot;%1&quot; error %2
%3</source>
        <translation>&quot;%1&quot;: ошибка %2
%3</translation>
    </message>
</context>
<context>
    <name>ExportWidgetTask</name>
    <message>
        <source>Export</source>
        <translation>Экспорт</translation>
    </message>
    <message>
        <source>Export success!</source>
        <translation>Экспорт выполнен успешно!</translation>
    </message>
</context>
<context>
    <name>GecosDialog</name>
    <message>
        <source>User information</source>
        <translation>Сведения о пользователе</translation>
    </message>
    <message>
        <source>&amp;Full name:</source>
        <translation>&amp;Полное имя:</translation>
    </message>
    <message>
        <source>Full name</source>
        <translation>Полное имя</translation>
    </message>
    <message>
        <source>&amp;Room:</source>
        <translation>&amp;Комната:</translation>
    </message>
    <message>
        <source>Room</source>
        <translation>Комната</translation>
    </message>
    <message>
        <source>&amp;Work phone:</source>
        <translation>&amp;Рабочий телефон:</translation>
    </message>
    <message>
        <source>Work phone</source>
        <translation>Рабочий телефон</translation>
    </message>
    <message>
        <source>&amp;Home phone:</source>
        <translation>&amp;Домашний телефон:</translation>
    </message>
    <message>
        <source>Home phone</source>
        <translation>Домашний телефон</translation>
    </message>
    <message>
        <source>&amp;Other:</source>
        <translation>&amp;Прочее:</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Прочее</translation>
    </message>
    <message>
        <source>Input error</source>
        <translation>Ошибка ввода</translation>
    </message>
    <message>
        <source>Dialog buttons</source>
        <translation>Кнопки диалога</translation>
    </message>
    <message>
        <source>The field &quot;%1&quot; must not contain commas, colons or line feeds.</source>
        <translation>Поле «%1» не должно содержать запятых, двоеточий и переводов строки.</translation>
    </message>
</context>
<context>
    <name>LoginPasswordDialog</name>
    <message>
        <source>Log in</source>
        <translation>Вход</translation>
    </message>
    <message>
        <source>&amp;Login:</source>
        <translation>&amp;Имя входа:</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>Имя входа</translation>
    </message>
    <message>
        <source>&amp;Password:</source>
        <translation>&amp;Пароль:</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Пароль</translation>
    </message>
    <message>
        <source>Input error</source>
        <translation>Ошибка ввода</translation>
    </message>
    <message>
        <source>Dialog buttons</source>
        <translation>Кнопки диалога</translation>
    </message>
    <message>
        <source>Enter a login.</source>
        <translation>Введите имя входа.</translation>
    </message>
    <message>
        <source>A login may hold only letters, digits, dots, hyphens and underscores and must not begin with a hyphen.</source>
        <translation>Имя входа может содержать только буквы, цифры, точки, дефисы и подчёркивания и не должно начинаться с дефиса.</translation>
    </message>
</context>
<context>
    <name>MiscModel</name>
    <message>
        <source>Data</source>
        <translation>Данные</translation>
    </message>
</context>
<context>
    <name>Module</name>
    <message>
        <source>Force reread mode</source>
        <translation>Режим принудительного перечитывания</translation>
    </message>
</context>
<context>
    <name>ModuleRootTreeNode</name>
    <message>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
    <message>
        <source>Reread</source>
        <translation>Перечитывание</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Описание</translation>
    </message>
</context>
<context>
    <name>NodesElementWidget</name>
    <message>
        <source>Form</source>
        <translation>Форма</translation>
    </message>
    <message>
        <source>Elements</source>
        <translation>Элементы</translation>
    </message>
</context>
<context>
    <name>PasswordChangeDialog</name>
    <message>
        <source>Change password</source>
        <translation>Смена пароля</translation>
    </message>
    <message>
        <source>&amp;New password:</source>
        <translation>&amp;Новый пароль:</translation>
    </message>
    <message>
        <source>New password</source>
        <translation>Новый пароль</translation>
    </message>
    <message>
        <source>&amp;Confirm password:</source>
        <translation>&amp;Подтверждение пароля:</translation>
    </message>
    <message>
        <source>Confirm password</source>
        <translation>Подтверждение пароля</translation>
    </message>
    <message>
        <source>Input error</source>
        <translation>Ошибка ввода</translation>
    </message>
    <message>
        <source>Dialog buttons</source>
        <translation>Кнопки диалога</translation>
    </message>
    <message>
        <source>The password must not be empty.</source>
        <translation>Пароль не должен быть пустым.</translation>
    </message>
    <message>
        <source>The passwords do not match.</source>
        <translation>Пароли не совпадают.</translation>
    </message>
</context>
<context>
    <name>PgsqlCluster</name>
    <message>
        <source>Cluster info not valid &apos;%1&apos;</source>
        <translation>Неверные сведения о кластере &apos;%1&apos;</translation>
    </message>
    <message>
        <source>SQL request &apos;%1&apos; not mathed</source>
        <translation>Запрос SQL &apos;%1&apos; не сопоставлен</translation>
    </message>
    <message>
        <source>User name &apos;%1&apos; is not valid</source>
        <translation>Недопустимое имя пользователя &apos;%1&apos;</translation>
    </message>
</context>
<context>
    <name>PluginContainer</name>
    <message>
        <source>Plugin directory &apos;%1&apos; not exist.</source>
        <translation>Каталог модулей &apos;%1&apos; не существует.</translation>
    </message>
    <message>
        <source>Failed to load plugin.</source>
        <translation>Не удалось загрузить модуль.</translation>
    </message>
    <message>
        <source>The error can be caused by missing package(s): %1.</source>
        <translation>Ошибка может быть вызвана отсутствием пакета (пакетов): %1.</translation>
    </message>
    <message>
        <source>Not loaded because &apos;%1&apos; is not owned by root or is writable by group or others.</source>
        <translation>Не загружен, так как владелец &apos;%1&apos; не root или запись в него разрешена группе или остальным.</translation>
    </message>
</context>
<context>
    <name>PluginDialog</name>
    <message>
        <source>Plugins and modules</source>
        <translation>Модули и разделы</translation>
    </message>
    <message>
        <source>Plugin path:</source>
        <translation>Путь к модулям:</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Изменить</translation>
    </message>
    <message>
        <source>Plugins</source>
        <translation>Модули</translation>
    </message>
    <message>
        <source>Modules</source>
        <translation>Разделы</translation>
    </message>
    <message>
        <source>Plugin directory</source>
        <translation>Каталог модулей</translation>
    </message>
</context>
<context>
    <name>PluginModel</name>
    <message>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Описание</translation>
    </message>
</context>
<context>
    <name>PreviewDialog</name>
    <message>
        <source>Print preview</source>
        <translation>Предварительный просмотр печати</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Печать…</translation>
    </message>
    <message>
        <source>Print preview…</source>
        <translation>Предварительный просмотр…</translation>
    </message>
    <message>
        <source>Page setup…</source>
        <translation>Параметры страницы…</translation>
    </message>
    <message>
        <source>Export to HTML…</source>
        <translation>Экспорт в HTML…</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Уменьшить</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Увеличить</translation>
    </message>
    <message>
        <source>Export to HTML</source>
        <translation>Экспорт в HTML</translation>
    </message>
    <message>
        <source>HTML files (*.html *.htm);;All files (*)</source>
        <translation>Файлы HTML (*.html *.htm);;Все файлы (*)</translation>
    </message>
</context>
<context>
    <name>PrintWidgetTask</name>
    <message>
        <source>Internal error: %1</source>
        <translation>Внутренняя ошибка: %1</translation>
    </message>
    <message>
        <source>XML transformation failed</source>
        <translation>не удалось преобразовать XML</translation>
    </message>
</context>
<context>
    <name>Process</name>
    <message>
        <source>Process &apos;%1&apos; not finished</source>
        <translation>Процесс &apos;%1&apos; не завершён</translation>
    </message>
    <message>
        <source>Process &apos;%1&apos; execute with error code &apos;%2&apos;</source>
        <translation>Процесс &apos;%1&apos; завершился с кодом ошибки &apos;%2&apos;</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>started</source>
        <translation>запущена</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>остановлена</translation>
    </message>
    <message>
        <source>Json parse error:
%1</source>
        <translation>Ошибка разбора JSON:
%1</translation>
    </message>
    <message>
        <source>Expected json array</source>
        <translation>Ожидался массив JSON</translation>
    </message>
    <message>
        <source>Expected json object</source>
        <translation>Ожидался объект JSON</translation>
    </message>
    <message>
        <source>Json object should contain key &apos;%1&apos;</source>
        <translation>Объект JSON должен содержать ключ &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Expected double</source>
        <translation>Ожидалось число</translation>
    </message>
    <message>
        <source>Expected bool (0/1)</source>
        <translation>Ожидалось логическое значение (0/1)</translation>
    </message>
    <message>
        <source>Expected string</source>
        <translation>Ожидалась строка</translation>
    </message>
    <message>
        <source>Security options</source>
        <translation>Параметры безопасности</translation>
    </message>
    <message>
        <source>Failed to load security options .
%1</source>
        <translation>Не удалось загрузить параметры безопасности .
%1</translation>
    </message>
    <message>
        <source>orvel-security-monitor finished with error:
%1</source>
        <translation>orvel-security-monitor завершился с ошибкой:
%1</translation>
    </message>
    <message>
        <source>Process crashed</source>
        <translation>Процесс завершился аварийно</translation>
    </message>
    <message>
        <source>orvel-security-monitor finished with unexpected code: %1</source>
        <translation>orvel-security-monitor завершился с неожиданным кодом: %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; error %2
%3</source>
        <translation>&quot;%1&quot; ошибка %2
%3</translation>
    </message>
    <message>
        <source>&quot;%1&quot; not exists</source>
        <translation>&quot;%1&quot; не существует</translation>
    </message>
    <message>
        <source>Process: &quot;%1 %2&quot;. Error: %3.
&quot;Not started&quot;</source>
        <translation>Процесс: &quot;%1 %2&quot;. Ошибка: %3.
&quot;Не запущен&quot;</translation>
    </message>
    <message>
        <source>Process: &quot;%1 %2&quot;. Error: %3.
&quot;Not finished&quot;</source>
        <translation>Процесс: &quot;%1 %2&quot;. Ошибка: %3.
&quot;Не завершён&quot;</translation>
    </message>
    <message>
        <source>Process: &quot;%1 %2&quot;. Exit code: %3.
&quot;%4&quot;</source>
        <translation>Процесс: &quot;%1 %2&quot;. Код завершения: %3.
&quot;%4&quot;</translation>
    </message>
</context>
<context>
    <name>RecordWidget</name>
    <message>
        <source>Records</source>
        <translation>Записи</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Очистить</translation>
    </message>
    <message>
        <source>Import attributes</source>
        <translation>Импортировать атрибуты</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Копировать</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Удалить</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Добавить</translation>
    </message>
    <message>
        <source>Choose rule to copy:</source>
        <translation>Выберите правило для копирования:</translation>
    </message>
</context>
<context>
    <name>ServiceTask</name>
    <message>
        <source>Process: &quot;%1 %2&quot;. Error: %3.
&quot;Not started&quot;</source>
        <translation>Процесс: &quot;%1 %2&quot;. Ошибка: %3.
&quot;Не запущен&quot;</translation>
    </message>
    <message>
        <source>Process: &quot;%1 %2&quot;. Error: %3.
&quot;Not finished&quot;</source>
        <translation>Процесс: &quot;%1 %2&quot;. Ошибка: %3.
&quot;Не завершён&quot;</translation>
    </message>
    <message>
        <source>Process: &quot;%1 %2&quot;. Exit code: %3.
&quot;%4&quot;</source>
        <translation>Процесс: &quot;%1 %2&quot;. Код завершения: %3.
&quot;%4&quot;</translation>
    </message>
</context>
<context>
    <name>SingleChoiceDialog</name>
    <message>
        <source>Filter</source>
        <translation>Фильтр</translation>
    </message>
    <message>
        <source>Show only the names that contain this text</source>
        <translation>Показывать только имена, содержащие этот текст</translation>
    </message>
    <message>
        <source>Names</source>
        <translation>Имена</translation>
    </message>
    <message>
        <source>Select the name to choose</source>
        <translation>Выделите имя, которое нужно выбрать</translation>
    </message>
</context>
<context>
    <name>StoppableDummyTask</name>
    <message>
        <source>Stoppable dummy task</source>
        <translation>Прерываемая пробная задача</translation>
    </message>
    <message>
        <source>Terminate by user</source>
        <translation>Прервано пользователем</translation>
    </message>
</context>
<context>
    <name>SwitchWidget</name>
    <message>
        <source>Form</source>
        <translation>Форма</translation>
    </message>
    <message>
        <source>Control checkbox</source>
        <translation>Переключатель</translation>
    </message>
    <message>
        <source>Extra text</source>
        <translation>Дополнительный текст</translation>
    </message>
    <message>
        <source>Extra button</source>
        <translation>Дополнительно</translation>
    </message>
    <message>
        <source>Open orvel-console group management</source>
        <translation>Открыть управление группами orvel-console</translation>
    </message>
    <message>
        <source>Edit firewall rules</source>
        <translation>Изменить правила межсетевого экрана</translation>
    </message>
    <message>
        <source>Configure shutdown lock</source>
        <translation>Настроить блокировку выключения</translation>
    </message>
</context>
<context>
    <name>TaskObserver</name>
    <message>
        <source>The task was not run: the worker pool stopped.</source>
        <translation>Задача не выполнена: пул рабочих потоков остановлен.</translation>
    </message>
    <message>
        <source>The task was not run: the task queue is full.</source>
        <translation>Задача не выполнена: очередь задач заполнена.</translation>
    </message>
    <message>
        <source>The task was not run: no worker threads have been started.</source>
        <translation>Задача не выполнена: рабочие потоки не запущены.</translation>
    </message>
</context>
<context>
    <name>TaskObserverDialog</name>
    <message>
        <source>Tasks</source>
        <translation>Задачи</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Подробнее</translation>
    </message>
    <message>
        <source>Stop task</source>
        <translation>Остановить задачу</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Остановить</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Предупреждение</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>TaskObserverModel</name>
    <message>
        <source>processing</source>
        <translation>выполняется</translation>
    </message>
    <message>
        <source>fail</source>
        <translation>ошибка</translation>
    </message>
    <message>
        <source>success</source>
        <translation>успешно</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>предупреждение</translation>
    </message>
    <message>
        <source>about to be stop</source>
        <translation>останавливается</translation>
    </message>
    <message>
        <source>Task</source>
        <translation>Задача</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Состояние</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Сообщение</translation>
    </message>
</context>
<context>
    <name>Thread</name>
    <message>
        <source>The task failed with an unexpected error.</source>
        <translation>Задача завершилась непредвиденной ошибкой.</translation>
    </message>
</context>
<context>
    <name>TypicalMessageBox</name>
    <message>
        <source>Don&apos;t show this error again</source>
        <translation>Больше не показывать эту ошибку</translation>
    </message>
</context>
<context>
    <name>TypicalMessagesDialog</name>
    <message>
        <source>Typical messages</source>
        <translation>Типовые сообщения</translation>
    </message>
    <message>
        <source>Dialog buttons</source>
        <translation>Кнопки диалога</translation>
    </message>
</context>
<context>
    <name>TypicalMessagesModel</name>
    <message>
        <source>Message description</source>
        <translation>Описание сообщения</translation>
    </message>
    <message>
        <source>Is skiped</source>
        <translation>Пропускается</translation>
    </message>
    <message>
        <source>From plugin(s)</source>
        <translation>От модуля(ей)</translation>
    </message>
</context>
<context>
    <name>ViewEditElementWidget</name>
    <message>
        <source>Element activation</source>
        <translation>Активация элемента</translation>
    </message>
    <message>
        <source>Changes not saved!
Continue without saving?</source>
        <translation>Изменения не сохранены!
Продолжить без сохранения?</translation>
    </message>
    <message>
        <source>Activation of this element not supported!</source>
        <translation>Активация этого элемента не поддерживается!</translation>
    </message>
</context>
</TS>
