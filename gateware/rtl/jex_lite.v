// A Lite core: one window, from the first sample on after it was armed.
module jex_lite #(
    parameter NUMBER = 0,
    parameter DATA_WIDTH = 1,
    parameter FALLING = 0,
    parameter INPUT_REGISTER = 0, // one register more for the data
    parameter STYLE = "block",
    parameter ADDRESS_BITS = 1, // of AMOUNT samples
    parameter AMOUNT = 2,
    parameter START = 0 // captures after configuration, without being armed
) (
    input wire clk,
    input wire [DATA_WIDTH-1:0] data,
    input wire ctl_clock,
    input wire ctl_select,
    input wire ctl_capture,
    input wire ctl_shift,
    input wire ctl_update,
    input wire ctl_tdi,
    output wire ctl_tdo,
    output wire [15:0] windows,
    output wire done,
    output wire [31:0] seen
);

    localparam REGISTERED = INPUT_REGISTER != 0 ? 1 : 0;

    wire arm;
    wire sampled_arm;
    wire [DATA_WIDTH-1:0] sampled;
    wire sampled_valid;
    jex_input #(
        .WIDTH(DATA_WIDTH + 1),
        .FALLING(FALLING)
    ) sampler (
        .clk(clk),
        .in({arm, data}),
        .sample({sampled_arm, sampled}),
        .valid(sampled_valid)
    );

    wire [DATA_WIDTH-1:0] sample;
    wire valid;
    jex_delay #(
        .WIDTH(DATA_WIDTH + 1),
        .STAGES(REGISTERED)
    ) input_register (
        .clk(clk),
        .in({sampled_valid, sampled}),
        .out({valid, sample})
    );

    // As late as the data, and twice more: once to settle, once to be compared with.
    wire settled_arm;
    wire known_arm;
    jex_delay #(
        .WIDTH(1),
        .STAGES(REGISTERED + 1)
    ) settling (
        .clk(clk),
        .in(sampled_arm),
        .out(settled_arm)
    );
    jex_delay #(
        .WIDTH(1),
        .STAGES(1)
    ) compared (
        .clk(clk),
        .in(settled_arm),
        .out(known_arm)
    );

    wire running;
    wire waiting;
    wire stored;
    wire mark;
    wire window;
    wire [ADDRESS_BITS-1:0] write_address;
    jex_control #(
        .ADDRESS_BITS(ADDRESS_BITS),
        .DEPTH(AMOUNT),
        .AMOUNT(AMOUNT),
        .FREE(1),
        .FREE_START(1),
        .START(START)
    ) control (
        .clk(clk),
        .restart(settled_arm ^ known_arm),
        .valid(valid),
        .trigger(1'b0),
        .running(running),
        .waiting(waiting),
        .stored(stored),
        .mark(mark),
        .address(write_address),
        .windows(window)
    );
    assign windows = {15'd0, window};
    assign done = window;
    assign seen = 32'd0;
    wire unused = &{1'b0, waiting, mark};

    wire [ADDRESS_BITS-1:0] read_address;
    wire [DATA_WIDTH-1:0] read_data;
    jex_memory #(
        .WIDTH(DATA_WIDTH),
        .ADDRESS_BITS(ADDRESS_BITS),
        .STYLE(STYLE)
    ) memory (
        .write_clock(clk),
        .write(stored),
        .write_address(write_address),
        .write_data(sample),
        .read_clock(ctl_clock),
        .read_address(read_address),
        .read_data(read_data)
    );

    wire finished;
    jex_counter_sync #(
        .WIDTH(1)
    ) finished_sync (
        .clk(clk),
        .number(window),
        .other_clock(ctl_clock),
        .taken_over(finished)
    );

    wire force_line;
    wire load;
    wire unused_commands = &{1'b0, force_line, load};
    jex_readout #(
        .NUMBER(NUMBER),
        .WIDTH(DATA_WIDTH),
        .ADDRESS_BITS(ADDRESS_BITS)
    ) readout (
        .ctl_clock(ctl_clock),
        .ctl_select(ctl_select),
        .ctl_capture(ctl_capture),
        .ctl_shift(ctl_shift),
        .ctl_update(ctl_update),
        .ctl_tdi(ctl_tdi),
        .ctl_tdo(ctl_tdo),
        .arm(arm),
        .force_line(force_line),
        .load(load),
        .status({15'd0, finished, 14'd0, finished, running}),
        .seen(seen),
        .address(read_address),
        .sample(read_data)
    );

endmodule
