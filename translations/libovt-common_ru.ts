<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU">
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
