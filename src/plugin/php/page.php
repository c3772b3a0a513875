<?php

/**
 * Adds the page of the site's owner: Settings, Brasslet.
 */
function brasslet_add_page() {
	$hook = add_options_page( 'Brasslet', 'Brasslet', 'manage_options', 'brasslet', 'brasslet_show_page' );
	add_action( 'load-' . $hook, 'brasslet_prepare_page' );
}

/**
 * Adds a link to the page where WordPress lists its plugins.
 *
 * @param string[] $links The links below a plugin's name.
 * @param string   $file  The plugin.
 * @return string[]
 */
function brasslet_add_link( $links, $file ) {
	if ( plugin_basename( __FILE__ ) === $file && current_user_can( 'manage_options' ) ) {
		array_unshift( $links, brasslet_link( admin_url( 'options-general.php?page=brasslet' ), 'Settings' ) );
	}
	return $links;
}

/**
 * Does what was pressed on the page, before anything of it is shown. What was pressed elsewhere ends here.
 */
function brasslet_prepare_page() {
	add_action( 'admin_enqueue_scripts', 'brasslet_equip_page' );
	if ( isset( $_POST['brasslet_check'] ) ) {
		check_admin_referer( 'brasslet_check', 'brasslet_check_nonce' );
	}
	if ( isset( $_POST['brasslet_payments'] ) ) {
		check_admin_referer( 'brasslet_payments', 'brasslet_payments_nonce' );
		brasslet_change_payments();
	}
}

/**
 * Gives the page its style and its only script, which copies addresses. Without scripts there are no buttons for that.
 */
function brasslet_equip_page() {
	wp_add_inline_style(
		'list-tables',
		'.brasslet-value { overflow-wrap: anywhere; } .brasslet-copy[hidden] { display: none; }'
		. ' #brasslet-checked { scroll-margin-top: 60px; }'
		. ' @media ( min-width: 783px ) { .brasslet-names .column-alias { width: 14%; }'
		. ' .brasslet-names .column-paymail { width: 23%; } .brasslet-names .column-address { width: 31%; }'
		. ' .brasslet-names .column-check { width: 6%; } .brasslet-field { width: 25em; } }'
		// WordPress of some versions puts the search at the end of the page then.
		. ' @media ( max-width: 782px ) { .form-table td input.brasslet-field { width: calc( 100% - 2px ); }'
		. ' .brasslet-names p.search-box { position: static; width: auto; height: auto; margin: 10px 0; } }'
	);
	wp_enqueue_script( 'clipboard' );
	wp_enqueue_script( 'wp-a11y' );
	wp_add_inline_script(
		'clipboard',
		'document.addEventListener( "DOMContentLoaded", function () {
			document.querySelectorAll( ".brasslet-copy" ).forEach( function ( button ) { button.hidden = false; } );
			new ClipboardJS( ".brasslet-copy" ).on( "success", function ( event ) {
				event.trigger.focus();
				event.trigger.textContent = "Copied";
				window.wp.a11y.speak( "The address was copied." );
			} );
		} );'
	);
}

/**
 * Shows the page.
 */
function brasslet_show_page() {
	echo '<div class="wrap"><h1>Brasslet</h1>';
	brasslet_show_check();
	echo '<h2>Published names</h2>'
		. '<p>Names are published and removed with the Brasslet program on your PC.</p>';
	brasslet_show_names();
	brasslet_show_payments();
	echo '</div>';
}

/**
 * The address of the page, with what is searched for and the page of the list as they are.
 *
 * @return string
 */
function brasslet_page_url() {
	$kept = array( 'page' => 'brasslet' );
	// phpcs:disable WordPress.Security.NonceVerification -- only says which names are shown.
	if ( isset( $_GET['s'] ) ) {
		$kept['s'] = rawurlencode( sanitize_text_field( brasslet_string( wp_unslash( $_GET['s'] ) ) ) );
	}
	if ( isset( $_GET['paged'] ) ) {
		$kept['paged'] = absint( $_GET['paged'] );
	}
	// phpcs:enable
	return add_query_arg( $kept, admin_url( 'options-general.php' ) );
}
