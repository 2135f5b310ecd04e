#pragma once

#include "views/button.h"
#include "views/combo_box.h"
#include "views/field_columns.h"
#include "views/grid.h"
#include "views/list_view.h"
#include "views/tab_control.h"
#include "views/text_box.h"
#include "views/view_tree.h"

namespace rulemesh {

/// The size of the designer's surface as designed, in twips.
inline constexpr int DesignWidth = 11700;
inline constexpr int DesignHeight = 7755;

/// All named views of the designer as the design puts them: parent, place, caption, and what is hidden at the start.
struct DesignerViews {
    DesignerViews();

    ViewTree Tree;

    TabControl MainTab{Tree, {.Name = u"MainTab", .Place = {30, 0, 11625, 7754}}, {u"&Condition", u"Ru&les"}};
    Frame FrmCondition{Tree, {.Name = u"FrmCondition", .Parent = &MainTab, .Place = {120, 360, 11415, 7275}}};
    Frame FrmRules{Tree, {.Name = u"FrmRules", .Parent = &MainTab, .Place = {120, 360, 11445, 7335}}};

    // Tab 0: the scripts.
    Label lblSourceTables{Tree,
                          {.Name = u"lblSourceTables",
                           .Parent = &FrmCondition,
                           .Place = {120, 240, 1815, 255},
                           .Caption = u"Source Tables",
                           .Type = BoldSansSerif}};
    ListView lstSourceTables{Tree,
                             {.Name = u"lstSourceTables", .Parent = &FrmCondition, .Place = {40, 480, 1935, 2175}},
                             {.Columns = {{u"SourceTable", 2540}}}};
    Button CmdSelectSource{
        Tree,
        {.Name = u"CmdSelectSource", .Parent = &FrmCondition, .Place = {120, 2760, 735, 315}, .Caption = u"Select"}};
    Button cmdSrcEdit{Tree,
                      {.Name = u"cmdSrcEdit",
                       .Parent = &FrmCondition,
                       .Place = {1080, 2760, 735, 315},
                       .Caption = u"Ed&it",
                       .ToolTip = u"Type in comma separated source table list in editor"}};
    Label lblPreCondition{Tree,
                          {.Name = u"lblPreCondition",
                           .Parent = &FrmCondition,
                           .Place = {2040, 240, 1095, 195},
                           .Caption = u"&PreCondition",
                           .Type = BoldSansSerif}};
    PictureButton PicPreResize{Tree,
                               {.Name = u"PicPreResize", .Parent = &FrmCondition, .Place = {10920, 240, 240, 255}}};
    SyntaxBox txtPreCondition{Tree,
                              {.Name = u"txtPreCondition", .Parent = &FrmCondition, .Place = {1950, 480, 9375, 2175}}};
    Button CmdBuildPre{
        Tree, {.Name = u"CmdBuildPre", .Parent = &FrmCondition, .Place = {2040, 2760, 975, 315}, .Caption = u"Build"}};
    Button CmdPreEditor{
        Tree,
        {.Name = u"CmdPreEditor", .Parent = &FrmCondition, .Place = {3240, 2760, 975, 315}, .Caption = u"Ed&itor"}};
    Button CmdPreDoc{
        Tree, {.Name = u"CmdPreDoc", .Parent = &FrmCondition, .Place = {4320, 2760, 975, 315}, .Caption = u"Text"}};
    Label lblMainQuery{Tree,
                       {.Name = u"lblMainQuery",
                        .Parent = &FrmCondition,
                        .Place = {120, 3120, 975, 195},
                        .Caption = u"Main &Query",
                        .Visible = false,
                        .Type = BoldSansSerif}};
    ListView lstMigrateSource{
        Tree,
        {.Name = u"lstMigrateSource", .Parent = &FrmCondition, .Place = {45, 3150, 1890, 3585}, .Type = {.Bold = true}},
        {.Columns = {{u"Main Query", 3211}}}};
    PictureButton PicMQResize{Tree,
                              {.Name = u"PicMQResize", .Parent = &FrmCondition, .Place = {10920, 2760, 240, 255}}};
    SyntaxBox txtMainQuery{Tree, {.Name = u"txtMainQuery", .Parent = &FrmCondition, .Place = {1920, 3120, 9375, 3645}}};
    Button cmdBuildMQ{
        Tree, {.Name = u"cmdBuildMQ", .Parent = &FrmCondition, .Place = {1920, 6840, 975, 315}, .Caption = u"Build"}};
    Button CmdMqEditor{
        Tree,
        {.Name = u"CmdMqEditor", .Parent = &FrmCondition, .Place = {3120, 6840, 975, 315}, .Caption = u"Edit&or"}};
    Button CmdMQDoc{
        Tree, {.Name = u"CmdMQDoc", .Parent = &FrmCondition, .Place = {4320, 6840, 975, 315}, .Caption = u"Te&xt"}};
    Button CmdFunction{Tree,
                       {.Name = u"CmdFunction",
                        .Parent = &FrmCondition,
                        .Place = {5400, 6840, 975, 315},
                        .Caption = u"F&unctions",
                        .LooksAround = true}};
    Button CmdVariables{Tree,
                        {.Name = u"CmdVariables",
                         .Parent = &FrmCondition,
                         .Place = {6360, 6840, 1935, 315},
                         .Caption = u"Variable&s / Includes",
                         .LooksAround = true}};
    Button CmdOk{Tree,
                 {.Name = u"CmdOk",
                  .Parent = &FrmCondition,
                  .Place = {8280, 6840, 1095, 315},
                  .Caption = u"O&k",
                  .Visible = false}};
    Button CmdCancel{Tree,
                     {.Name = u"CmdCancel",
                      .Parent = &FrmCondition,
                      .Place = {9360, 6840, 975, 315},
                      .Caption = u"Ca&ncel",
                      .Visible = false}};
    Button CmdFuncEditor{Tree,
                         {.Name = u"CmdFuncEditor",
                          .Parent = &FrmCondition,
                          .Place = {10320, 6840, 855, 315},
                          .Caption = u"Edito&r",
                          .Visible = false,
                          .Floats = true}};
    SyntaxBox txtFunctions{
        Tree, {.Name = u"txtFunctions", .Parent = &FrmCondition, .Place = {7560, 2640, 1095, 375}, .Visible = false}};
    SyntaxBox txtVariables{
        Tree, {.Name = u"txtVariables", .Parent = &FrmCondition, .Place = {8760, 2640, 1335, 375}, .Visible = false}};

    // Tab 1: the rules of one dump.
    Label lblTargetFields{
        Tree,
        {.Name = u"lblTargetFields", .Parent = &FrmRules, .Place = {120, 240, 855, 255}, .Caption = u"D&ump No."}};
    ComboBox CmbDump{
        Tree, {.Name = u"CmbDump", .Parent = &FrmRules, .Place = {960, 165, 3735, 315}, .ToolTip = u"tool tip works?"}};
    Button CmdChange{
        Tree, {.Name = u"CmdChange", .Parent = &FrmRules, .Place = {4800, 180, 1095, 315}, .Caption = u"Cha&nge..."}};
    Button Command1{Tree,
                    {.Name = u"Command1",
                     .Parent = &FrmRules,
                     .Place = {4680, 480, 615, 315},
                     .Caption = u"Sho&w",
                     .Visible = false}};
    Label lblTargetTable{Tree,
                         {.Name = u"lblTargetTable",
                          .Parent = &FrmRules,
                          .Place = {6120, 240, 1575, 255},
                          .Caption = u"For Target Table:",
                          .Visible = false}};
    Label LBLTargetTableName{Tree,
                             {.Name = u"LBLTargetTableName", .Parent = &FrmRules, .Place = {7680, 240, 1035, 255}}};
    ComboBox CmbTargetTable{
        Tree, {.Name = u"CmbTargetTable", .Parent = &FrmRules, .Place = {9450, 1080, 1335, 315}, .Visible = false}};
    Label Label3{Tree, {.Name = u"Label3", .Parent = &FrmRules, .Place = {8520, 240, 135, 255}, .Caption = u"-"}};
    Label lblTargetTableDescription{Tree,
                                    {.Name = u"lblTargetTableDescription",
                                     .Parent = &FrmRules,
                                     .Place = {8760, 240, 7725, 255},
                                     .Caption = u"...."}};
    Label Label2{Tree, {.Name = u"Label2", .Parent = &FrmRules, .Place = {0, 0, 1035, 255}}};
    Label Label1{Tree,
                 {.Name = u"Label1", .Parent = &FrmRules, .Place = {120, 600, 1335, 255}, .Caption = u"Target Fields"}};
    Label lblSourceFields{Tree,
                          {.Name = u"lblSourceFields",
                           .Parent = &FrmRules,
                           .Place = {5760, 600, 1335, 255},
                           .Caption = u"Source Fields"}};
    ListView lstTargetFields{
        Tree,
        {.Name = u"lstTargetFields", .Parent = &FrmRules, .Place = {0, 840, 5600, 2295}, .Type = SansSerif},
        {.Columns = ColumnsOf(FieldList::Target),
         .Sorted = true,
         .SortKey = TargetField::Number,
         .ToolTipPosition = TargetField::Enums,
         .SearchPosition = TargetField::Name}};
    ListView lstSourceFields{Tree,
                             {.Name = u"lstSourceFields",
                              .Parent = &FrmRules,
                              .Place = {5760, 840, 5600, 2295},
                              .Type = {u"Microsoft Sans Serif", 8.25, false}},
                             {.Columns = ColumnsOf(FieldList::Source),
                              .Select = ListView::Selection::Multiple,
                              .CheckBoxes = true,
                              .Sorted = true,
                              .SortKey = SourceField::Number,
                              .ToolTipPosition = SourceField::Enums,
                              .SearchPosition = SourceField::Name}};
    Button CmdFuncBuild{Tree,
                        {.Name = u"CmdFuncBuild",
                         .Parent = &FrmRules,
                         .Place = {120, 2490, 1185, 465},
                         .Caption = u"&Build",
                         .Visible = false}};
    Button CmdGuess{Tree,
                    {.Name = u"CmdGuess", .Parent = &FrmRules, .Place = {240, 3250, 1185, 315}, .Caption = u"&Guess"}};
    Button cmdCopyDump{Tree,
                       {.Name = u"cmdCopyDump",
                        .Parent = &FrmRules,
                        .Place = {1590, 3250, 1900, 315},
                        .Caption = u"Cop&y from dump.."}};
    Button cmdCopyToAllDumps{Tree,
                             {.Name = u"cmdCopyToAllDumps",
                              .Parent = &FrmRules,
                              .Place = {3600, 3250, 1900, 315},
                              .Caption = u"Copy to &all dumps.."}};
    Button CmdMap{Tree, {.Name = u"CmdMap", .Parent = &FrmRules, .Place = {5760, 3250, 1185, 315}, .Caption = u"Ma&p"}};
    Button CmdEditRule{
        Tree,
        {.Name = u"CmdEditRule", .Parent = &FrmRules, .Place = {7095, 3250, 1185, 315}, .Caption = u"Edit &Rule"}};
    Button CmdDumpText{
        Tree, {.Name = u"CmdDumpText", .Parent = &FrmRules, .Place = {8340, 3250, 1185, 315}, .Caption = u"Commen&t"}};
    Frame Details{Tree,
                  {.Name = u"Details", .Parent = &FrmRules, .Place = {60, 3720, 11265, 3495}, .Caption = u"Deta&ils"}};
    Grid RulesGrid{Tree,
                   {.Name = u"RulesGrid", .Parent = &Details, .Place = {120, 240, 10935, 3075}, .Type = SansSerif},
                   {1700, 9085}};
    TextBox txtgrdline{
        Tree,
        {.Name = u"txtgrdline", .Parent = &Details, .Place = {10440, 120, 615, 285}, .Visible = false, .Floats = true}};
};

} // namespace rulemesh
