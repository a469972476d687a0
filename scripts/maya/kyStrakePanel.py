"""kyStrake panel for Maya 2019.

Builds the artist's panel of the kyStrake retopology tool: the controls the tool finds by their Qt
object names ("kyStrakeLaunchBtn", "freezeBtn", "freezeSymBtn", "lockedPinchChk", "pinchSlid",
"bridgeSpin") and the others an artist needs, each wired to the option variables and the context
command flags the tool reads. Launching makes the kyStrake locator, connects the selected mesh to it
as the source, creates the tool context and makes it the current tool.

Usage, in the Script Editor's Python tab (the folder of this file on sys.path or PYTHONPATH):

    import kyStrakePanel
    kyStrakePanel.show()

Uses maya.cmds and PySide2 only; the syntax runs on Maya 2019's Python 2.7 and on Python 3.
"""

from maya import cmds
from PySide2 import QtCore, QtWidgets

PLUGIN = "kyStrake_2019"
CONTEXT = "kyStrakeContext1"
LOCATOR = "kyStrakeShape1"
PANEL = "kyStrakePanel"

_panel = [None]


def load_plugin():
    """Loads the kyStrake plug-in once; Maya finds it on MAYA_PLUG_IN_PATH."""
    if not cmds.pluginInfo(PLUGIN, query=True, loaded=True):
        cmds.loadPlugin(PLUGIN)


def context_command(*args, **flags):
    """The plug-in's context command, which maya.cmds knows only once the plug-in is loaded."""
    return getattr(cmds, "kyStrakeContext")(*args, **flags)


def find_locator():
    """The scene's kyStrake locator, made when there is none."""
    locators = cmds.ls(type="kyStrake") or []
    if locators:
        return locators[0]
    return cmds.createNode("kyStrake", name=LOCATOR)


def selected_meshes():
    """The mesh shapes under the selection, intermediate objects left out."""
    return cmds.ls(selection=True, dag=True, type="mesh", noIntermediate=True) or []


def connect_source(locator, meshes):
    """Connects the first of `meshes` to the locator as the source the strokes lie on."""
    if not meshes:
        cmds.warning("kyStrake: select the source mesh first")
        return False
    cmds.connectAttr(meshes[0] + ".outMesh", locator + ".kyStrakeMesh", force=True)
    return True


def option_int(name, default):
    if cmds.optionVar(exists=name):
        return cmds.optionVar(query=name)
    return default


def set_option(name, value):
    if isinstance(value, float):
        cmds.optionVar(floatValue=(name, value))
    else:
        cmds.optionVar(intValue=(name, value))


def edit_context(**flags):
    """Sends edit flags to the running tool's context; nothing when the context is not made yet."""
    if cmds.contextInfo(CONTEXT, exists=True):
        context_command(CONTEXT, edit=True, **flags)


def launch(on):
    """Starts the tool on the selected source mesh, or goes back to the selection tool."""
    if not on:
        cmds.setToolTo("selectSuperContext")
        return
    load_plugin()
    locator = find_locator()
    sources = cmds.listConnections(locator + ".kyStrakeMesh", source=True, destination=False) or []
    if not sources and not connect_source(locator, selected_meshes()):
        return
    if not cmds.contextInfo(CONTEXT, exists=True):
        context_command(CONTEXT)
    cmds.setToolTo(CONTEXT)


def tool_texts():
    """The tool's status and help lines, split at commas as the viewport shows them."""
    texts = []
    for name in ("kyStrake_info1", "kyStrake_info2"):
        value = cmds.optionVar(query=name) if cmds.optionVar(exists=name) else ""
        texts.append("\n".join(str(value).split(",")))
    return texts


def maya_main_window():
    for widget in QtWidgets.QApplication.topLevelWidgets():
        if widget.objectName() == "MayaWindow":
            return widget
    return None


def named(widget, name):
    widget.setObjectName(name)
    return widget


def spin_box(name, low, high, value):
    box = named(QtWidgets.QSpinBox(), name)
    box.setRange(low, high)
    box.setValue(value)
    return box


def push_button(name, label, checkable):
    button = named(QtWidgets.QPushButton(label), name)
    button.setCheckable(checkable)
    return button


class KyStrakePanel(QtWidgets.QWidget):
    """The panel window; one at a time, found again by its object name."""

    def __init__(self, parent=None):
        super(KyStrakePanel, self).__init__(parent)
        self.setObjectName(PANEL)
        self.setWindowTitle("kyStrake")
        self.setWindowFlags(QtCore.Qt.Window)
        layout = QtWidgets.QVBoxLayout(self)
        self.launch_button = push_button("kyStrakeLaunchBtn", "kyStrake", True)
        self.launch_button.clicked.connect(launch)
        layout.addWidget(self.launch_button)
        layout.addWidget(self.stroke_group())
        layout.addWidget(self.patch_group())
        layout.addWidget(self.brush_group())
        self.status = QtWidgets.QLabel()
        self.help = QtWidgets.QLabel()
        self.help.setWordWrap(True)
        layout.addWidget(self.status)
        layout.addWidget(self.help, 1)
        # The tool writes its texts into option variables; the panel shows them as they change.
        self.timer = QtCore.QTimer(self)
        self.timer.timeout.connect(self.show_tool_texts)
        self.timer.start(250)

    def show_tool_texts(self):
        status, help_text = tool_texts()
        self.status.setText(status)
        self.help.setText(help_text)

    def stroke_group(self):
        group = QtWidgets.QGroupBox("Strokes")
        form = QtWidgets.QFormLayout(group)
        figure = named(QtWidgets.QComboBox(), "figureCombo")
        figure.addItems(["Freehand", "Line", "Rectangle", "Circle"])
        figure.activated.connect(lambda index: edit_context(figure=index))
        form.addRow("Figure", figure)
        lazy = named(QtWidgets.QCheckBox("Lazy filter"), "lazyChk")
        lazy.setChecked(option_int("ky_lazyActive", 0) == 1)
        lazy.clicked.connect(lambda on: set_option("ky_lazyActive", int(on)))
        form.addRow(lazy)
        distance = spin_box("lazyDistanceSpin", 1, 10, option_int("ky_lazyDistance", 1))
        distance.valueChanged.connect(lambda value: set_option("ky_lazyDistance", value))
        form.addRow("Lazy distance", distance)
        strength = spin_box("lazyStrengthSpin", 1, 10, option_int("ky_lazyStrength", 1))
        strength.valueChanged.connect(lambda value: set_option("ky_lazyStrength", value))
        form.addRow("Lazy strength", strength)
        glue = named(QtWidgets.QCheckBox("Glue strokes"), "glueChk")
        glue.setChecked(option_int("ky_glue", 0) != 0)
        glue.clicked.connect(lambda on: set_option("ky_glue", int(on)))
        form.addRow(glue)
        return group

    def patch_group(self):
        group = QtWidgets.QGroupBox("Patch")
        form = QtWidgets.QFormLayout(group)
        self.u_spans = spin_box("uSpanSpin", 1, 200, max(1, option_int("ky_uspan", 12)))
        self.v_spans = spin_box("vSpanSpin", 1, 200, max(1, option_int("ky_vspan", 12)))
        for spans in (self.u_spans, self.v_spans):
            spans.valueChanged.connect(self.spans_changed)
        form.addRow("Spans U", self.u_spans)
        form.addRow("Spans V", self.v_spans)
        divisions = spin_box("bridgeSpin", 0, 50, option_int("ky_bdiv", 0))
        divisions.valueChanged.connect(lambda value: set_option("ky_bdiv", value))
        form.addRow("Bridge divisions", divisions)
        pinch = named(QtWidgets.QSlider(QtCore.Qt.Horizontal), "pinchSlid")
        pinch.setRange(-95, 95)
        pinch.valueChanged.connect(lambda value: edit_context(pinch=value * 0.01))
        form.addRow("Pinch", pinch)
        locked = named(QtWidgets.QCheckBox("Lock pinch"), "lockedPinchChk")
        locked.setChecked(True)
        form.addRow(locked)
        symmetry = named(QtWidgets.QCheckBox("Symmetry"), "symmetryChk")
        symmetry.clicked.connect(self.symmetry_changed)
        form.addRow(symmetry)
        return group

    def brush_group(self):
        group = QtWidgets.QGroupBox("Freeze and brushes")
        box = QtWidgets.QVBoxLayout(group)
        freeze = push_button("freezeBtn", "Freeze border", True)
        freeze.clicked.connect(lambda on: edit_context(freeze=on))
        median = push_button("freezeSymBtn", "Freeze median", True)
        median.clicked.connect(lambda on: edit_context(freezeMedian=on))
        relax = push_button("relaxBrushBtn", "Relax brush", False)
        relax.clicked.connect(self.relax_brush)
        move = push_button("moveBrushBtn", "Move brush", True)
        move.clicked.connect(lambda on: edit_context(moveBrush=on))
        for button in (freeze, median, relax, move):
            box.addWidget(button)
        return group

    def spans_changed(self, _value):
        # The context command takes both spans at once; with one alone the other is undefined.
        edit_context(uspan=self.u_spans.value(), vspan=self.v_spans.value())

    def symmetry_changed(self, on):
        locators = cmds.ls(type="kyStrake") or []
        if locators:
            cmds.setAttr(locators[0] + ".symmetry", int(on))

    def relax_brush(self):
        intensity = cmds.optionVar(query="ky_strakeIntens") if cmds.optionVar(exists="ky_strakeIntens") else 50.0
        radius = cmds.optionVar(query="ky_strakeRadius") if cmds.optionVar(exists="ky_strakeRadius") else 50.0
        edit_context(relaxBrush=True, intensity=float(intensity), radius=float(radius))


def show():
    """Shows the panel, replacing one already open."""
    if _panel[0] is not None:
        _panel[0].close()
        _panel[0].deleteLater()
    _panel[0] = KyStrakePanel(maya_main_window())
    _panel[0].show()
    return _panel[0]
