<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU">
<context>
    <name>ConfRootTreeNode</name>
    <message>
        <location filename="../src/treenode/confroottreenode.cpp" line="+23"/>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Value</source>
        <translation>Значение</translation>
    </message>
</context>
<context>
    <name>Element</name>
    <message>
        <location filename="../src/element/element.cpp" line="+176"/>
        <source>Do you really want to remove this element?</source>
        <translation>Вы действительно хотите удалить этот элемент?</translation>
    </message>
</context>
<context>
    <name>ElementRootTreeNode</name>
    <message>
        <location filename="../src/element/elementroottreenode.cpp" line="+29"/>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
</context>
<context>
    <name>Module</name>
    <message>
        <location filename="../src/plugin/module.cpp" line="+79"/>
        <source>Force reread mode</source>
        <translation>Режим принудительного перечитывания</translation>
    </message>
</context>
<context>
    <name>ModuleRootTreeNode</name>
    <message>
        <location filename="../src/plugin/moduleroottreenode.cpp" line="+18"/>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Reread</source>
        <translation>Перечитывание</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Description</source>
        <translation>Описание</translation>
    </message>
</context>
<context>
    <name>PgsqlCluster</name>
    <message>
        <location filename="../src/system/pgsqlcluster.cpp" line="+41"/>
        <source>Cluster info not valid &apos;%1&apos;</source>
        <translation>Неверные сведения о кластере &apos;%1&apos;</translation>
    </message>
    <message>
        <location line="+48"/>
        <source>SQL request &apos;%1&apos; not mathed</source>
        <translation>Запрос SQL &apos;%1&apos; не сопоставлен</translation>
    </message>
</context>
<context>
    <name>PluginContainer</name>
    <message>
        <location filename="../src/plugin/plugincontainer.cpp" line="+66"/>
        <source>Plugin directory &apos;%1&apos; not exist.</source>
        <translation>Каталог модулей &apos;%1&apos; не существует.</translation>
    </message>
    <message>
        <location line="+31"/>
        <source>Failed to load plugin.</source>
        <translation>Не удалось загрузить модуль.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>The error can be caused by missing package(s): %1.</source>
        <translation>Ошибка может быть вызвана отсутствием пакета (пакетов): %1.</translation>
    </message>
</context>
<context>
    <name>PluginDialog</name>
    <message>
        <location filename="../src/plugin/plugindialog.ui" line="+14"/>
        <source>Plugins and modules</source>
        <translation>Модули и разделы</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Plugin path:</source>
        <translation>Путь к модулям:</translation>
    </message>
    <message>
        <location line="+14"/>
        <source>Change</source>
        <translation>Изменить</translation>
    </message>
    <message>
        <location line="+11"/>
        <source>Plugins</source>
        <translation>Модули</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Modules</source>
        <translation>Разделы</translation>
    </message>
    <message>
        <location filename="../src/plugin/plugindialog.cpp" line="+55"/>
        <source>Plugin directory</source>
        <translation>Каталог модулей</translation>
    </message>
</context>
<context>
    <name>PluginModel</name>
    <message>
        <location filename="../src/plugin/pluginmodel.cpp" line="+98"/>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Description</source>
        <translation>Описание</translation>
    </message>
</context>
<context>
    <name>Process</name>
    <message>
        <location filename="../src/system/process.cpp" line="+27"/>
        <source>Process &apos;%1&apos; not finished</source>
        <translation>Процесс &apos;%1&apos; не завершён</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Process &apos;%1&apos; execute with error code &apos;%2&apos;</source>
        <translation>Процесс &apos;%1&apos; завершился с кодом ошибки &apos;%2&apos;</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <location filename="../src/element/servicelightelementdata.cpp" line="+39"/>
        <source>started</source>
        <translation>запущена</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>stopped</source>
        <translation>остановлена</translation>
    </message>
    <message>
        <location filename="../src/system/orvelsecuritymonitorhelper.cpp" line="+33"/>
        <source>Json parse error:
%1</source>
        <translation>Ошибка разбора JSON:
%1</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Expected json array</source>
        <translation>Ожидался массив JSON</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Expected json object</source>
        <translation>Ожидался объект JSON</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Json object should contain key &apos;%1&apos;</source>
        <translation>Объект JSON должен содержать ключ &apos;%1&apos;</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Expected double</source>
        <translation>Ожидалось число</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Expected bool (0/1)</source>
        <translation>Ожидалось логическое значение (0/1)</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Expected string</source>
        <translation>Ожидалась строка</translation>
    </message>
    <message>
        <location line="+43"/>
        <source>Security options</source>
        <translation>Параметры безопасности</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Failed to load security options .
%1</source>
        <translation>Не удалось загрузить параметры безопасности .
%1</translation>
    </message>
    <message>
        <location line="+17"/>
        <source>orvel-security-monitor finished with error:
%1</source>
        <translation>orvel-security-monitor завершился с ошибкой:
%1</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Process crashed</source>
        <translation>Процесс завершился аварийно</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>orvel-security-monitor finished with unexpected code: %1</source>
        <translation>orvel-security-monitor завершился с неожиданным кодом: %1</translation>
    </message>
    <message>
        <location filename="../src/system/regexphandler.cpp" line="+23"/>
        <source>&quot;%1&quot; error %2
%3</source>
        <translation>&quot;%1&quot; ошибка %2
%3</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>&quot;%1&quot; not exists</source>
        <translation>&quot;%1&quot; не существует</translation>
    </message>
    <message>
        <location line="+181"/>
        <source>Process: &quot;%1 %2&quot;. Error: %3.
&quot;Not started&quot;</source>
        <translation>Процесс: &quot;%1 %2&quot;. Ошибка: %3.
&quot;Не запущен&quot;</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Process: &quot;%1 %2&quot;. Error: %3.
&quot;Not finished&quot;</source>
        <translation>Процесс: &quot;%1 %2&quot;. Ошибка: %3.
&quot;Не завершён&quot;</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Process: &quot;%1 %2&quot;. Exit code: %3.
&quot;%4&quot;</source>
        <translation>Процесс: &quot;%1 %2&quot;. Код завершения: %3.
&quot;%4&quot;</translation>
    </message>
</context>
<context>
    <name>SwitchWidget</name>
    <message>
        <location filename="../src/system/switchwidget.ui" line="+26"/>
        <source>Form</source>
        <translation>Форма</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Control checkbox</source>
        <translation>Переключатель</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Extra text</source>
        <translation>Дополнительный текст</translation>
    </message>
    <message>
        <location line="+24"/>
        <source>Extra button</source>
        <translation>Дополнительно</translation>
    </message>
    <message>
        <location filename="../src/system/switchwidget.cpp" line="+35"/>
        <source>Open orvel-console group management</source>
        <translation>Открыть управление группами orvel-console</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Edit firewall rules</source>
        <translation>Изменить правила межсетевого экрана</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Configure shutdown lock</source>
        <translation>Настроить блокировку выключения</translation>
    </message>
</context>
<context>
    <name>TaskObserverDialog</name>
    <message>
        <location filename="../src/task/taskobserverdialog.ui" line="+14"/>
        <location filename="../src/task/taskobserverdialog.cpp" line="+115"/>
        <source>Tasks</source>
        <translation>Задачи</translation>
    </message>
    <message>
        <location line="+74"/>
        <source>More</source>
        <translation>Подробнее</translation>
    </message>
    <message>
        <location line="+16"/>
        <source>Stop task</source>
        <translation>Остановить задачу</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Stop</source>
        <translation>Остановить</translation>
    </message>
    <message>
        <location filename="../src/task/taskobserverdialog.cpp" line="+12"/>
        <source>Error</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Warning</source>
        <translation>Предупреждение</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>TaskObserverModel</name>
    <message>
        <location filename="../src/task/taskobservermodel.cpp" line="+71"/>
        <source>processing</source>
        <translation>выполняется</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>fail</source>
        <translation>ошибка</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>success</source>
        <translation>успешно</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>warning</source>
        <translation>предупреждение</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>about to be stop</source>
        <translation>останавливается</translation>
    </message>
    <message>
        <location line="+22"/>
        <source>Task</source>
        <translation>Задача</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Status</source>
        <translation>Состояние</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Message</source>
        <translation>Сообщение</translation>
    </message>
</context>
<context>
    <name>ViewEditElementWidget</name>
    <message>
        <location filename="../src/widgets/vieweditelementwidget.cpp" line="+152"/>
        <location line="+16"/>
        <source>Element activation</source>
        <translation>Активация элемента</translation>
    </message>
    <message>
        <location line="-15"/>
        <source>Changes not saved!
Continue without saving?</source>
        <translation>Изменения не сохранены!
Продолжить без сохранения?</translation>
    </message>
    <message>
        <location line="+16"/>
        <source>Activation of this element not supported!</source>
        <translation>Активация этого элемента не поддерживается!</translation>
    </message>
</context>
</TS>
