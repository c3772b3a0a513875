<?php

/*
 * How Site Health asks: for the document, and for the key and the address of a few names, which stand for all of them.
 * The first wrong answer ends it. Seven requests of four seconds are less than half a minute, however slow the site is.
 */
define( 'BRASSLET_HEALTH_SECONDS', 4 );
define( 'BRASSLET_HEALTH_NAMES', 3 );

/**
 * Adds what this plugin needs of the site to Tools, Site Health.
 *
 * The second test asks the site itself over the network, so the page loads first and asks for it then.
 *
 * @param array $tests The tests of WordPress and of other plugins.
 * @return array
 */
function brasslet_health_tests( $tests ) {
	$tests['direct']['brasslet_permalinks'] = array(
		'label' => 'Brasslet: permalinks',
		'test'  => 'brasslet_health_permalinks',
	);
	$tests['async']['brasslet_discovery']   = array(
		'label'             => 'Brasslet: published names',
		'test'              => rest_url( BRASSLET_NAMESPACE . '/health' ),
		'has_rest'          => true,
		'async_direct_test' => 'brasslet_health_discovery',
	);
	return $tests;
}

/**
 * Tests that the URLs of the discovery document lead to WordPress.
 *
 * @return array The result, as Site Health shows it.
 */
function brasslet_health_permalinks() {
	if ( brasslet_has_permalinks() ) {
		return brasslet_health_result(
			'brasslet_permalinks',
			'good',
			'Permalinks lead wallets to your payment names',
			'Wallets ask below /wp-json/, and your permalink structure hands that to WordPress.'
		);
	}
	list( , $advice, $link ) = brasslet_permalink_obstacle();

	$result = brasslet_health_result(
		'brasslet_permalinks',
		'critical',
		'Permalinks keep wallets from your payment names',
		$advice
	);

	$result['actions'] = '<p>' . $link . '</p>';
	return $result;
}

/**
 * Says whether /wp-json/ leads to WordPress. The kind of permalinks that begin with "index.php" does not do it.
 *
 * @return bool
 */
function brasslet_has_permalinks() {
	$structure = brasslet_string( get_option( 'permalink_structure' ) );
	return '' !== $structure && 1 !== preg_match( '#^/*index\.php#', $structure );
}

/**
 * Tests that wallets get this site's own discovery document, and the keys of published names.
 *
 * @return array The result, as Site Health shows it.
 */
function brasslet_health_discovery() {
	$rows  = brasslet_health_rows();
	$found = brasslet_ask_as_wallet( $rows );
	if ( is_wp_error( $found ) && 'brasslet_unasked' === $found->get_error_code() ) {
		$result = brasslet_health_result(
			'brasslet_discovery',
			'recommended',
			'Your server cannot check whether wallets can read your payment names',
			$found->get_error_message()
		);

		$link              = brasslet_link( brasslet_document_url(), 'Open what wallets ask for first' );
		$result['actions'] = '<p>' . $link . '</p>';
		return $result;
	}
	if ( is_wp_error( $found ) ) {
		return brasslet_health_result(
			'brasslet_discovery',
			// Without a name nobody's payment fails.
			count( $rows ) > 0 ? 'critical' : 'recommended',
			'Wallets cannot read your payment names',
			$found->get_error_message()
		);
	}
	$asked = array_map( 'brasslet_handle', $rows );
	return brasslet_health_result(
		'brasslet_discovery',
		'good',
		'Wallets can read your payment names',
		count( $asked ) > 0
			? sprintf( 'Your site gave the right answers about %s.', implode( ', ', $asked ) )
			: 'Your site answers wallets as it should, and no name is published yet.'
	);
}

/**
 * Picks the names that Site Health asks for: the first ones, leaving out what only a damaged record holds.
 *
 * @return array Rows.
 */
function brasslet_health_rows() {
	$usable = array_filter(
		brasslet_rows(),
		function ( $row ) {
			return 1 === preg_match( BRASSLET_ALIAS_RULE, $row['alias'] );
		}
	);
	return array_slice( array_values( $usable ), 0, BRASSLET_HEALTH_NAMES );
}

/**
 * Makes a result of Site Health.
 *
 * @param string $test     The test.
 * @param string $status   One of "good", "recommended" and "critical".
 * @param string $label    The line that is always seen.
 * @param string $sentence What was found and what to do, as plain text.
 * @return array
 */
function brasslet_health_result( $test, $status, $label, $sentence ) {
	return array(
		'label'       => $label,
		'status'      => $status,
		'badge'       => array(
			'label' => 'Brasslet',
			'color' => 'blue',
		),
		'description' => '<p>' . esc_html( $sentence ) . '</p>',
		'actions'     => '',
		'test'        => $test,
	);
}
